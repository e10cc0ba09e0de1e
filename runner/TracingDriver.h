#pragma once

#include <memory>
#include <utility>

#include "platform/uiautomation/WrappedDriver.h"
#include "runner/Trace.h"

namespace quobrak {

/// Writes each operation of a driver to the trace: its name, what it was done to, how long it took and what it raised.
class TracingDriver final : public WrappedDriver {
 public:
  /// `output` must outlive the driver.
  TracingDriver(std::unique_ptr<UIDriver> driver, TraceOutput& output)
      : WrappedDriver(std::move(driver)), output_(output) {}

 protected:
  void around(std::string_view name, const std::function<std::string()>& target,
              const std::function<void()>& primitive) override;

 private:
  TraceOutput& output_;
};

}  // namespace quobrak
