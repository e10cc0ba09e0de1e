#pragma once

#include "platform/uiautomation/WrappedDriver.h"

namespace quobrak::testing {

/// A driver of no phone that counts how often it was told to forget its look-ups.
class ForgettingDriver final : public WrappedDriver {
 public:
  ForgettingDriver() : WrappedDriver(nullptr) {}

  int timesForgotten = 0;

  void forgetLookups() override { ++timesForgotten; }

 protected:
  void around(std::string_view, const std::function<std::string()>&, const std::function<void()>& primitive) override {
    primitive();
  }
};

}  // namespace quobrak::testing
