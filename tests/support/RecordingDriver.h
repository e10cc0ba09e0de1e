#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uiautomation/WrappedDriver.h"

namespace quobrak::testing {

/// A driver that keeps what was asked of it, and can fail.
class RecordingDriver final : public WrappedDriver {
 public:
  using WrappedDriver::WrappedDriver;

  /// The operations so far, each as "name" or "name: target in words".
  std::vector<std::string> operations;

  /// Called before each operation with its name and target; may throw in its place.
  std::function<void(std::string_view name, const std::string& target)> before = [](std::string_view,
                                                                                    const std::string&) {};

 protected:
  void around(std::string_view name, const std::function<std::string()>& target,
              const std::function<void()>& primitive) override;
};

}  // namespace quobrak::testing
