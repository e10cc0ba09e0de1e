#pragma once

#include <string_view>

#include "platform/uiautomation/UIDriver.h"

namespace quobrak {

/// A test case, as far as the system uses one.
class XCTestCase {
 public:
  virtual ~XCTestCase() = default;

  /// Whether a test goes on after its first recorded failure. The platform's default is true.
  bool continueAfterFailure() const { return continueAfterFailure_; }
  void setContinueAfterFailure(bool continues) { continueAfterFailure_ = continues; }

  /// Registers a handler that is called with an alert of the system process that blocks an action. It answers true when
  /// it has dealt with the alert. Handlers are asked in reverse order of registration.
  InterruptionMonitorToken addUIInterruptionMonitor(std::string_view description, InterruptionHandler handler);
  void removeUIInterruptionMonitor(InterruptionMonitorToken token);

 private:
  bool continueAfterFailure_ = true;
};

}  // namespace quobrak
