#include "platform/uiautomation/XCTestCase.h"

#include <utility>

namespace quobrak {

InterruptionMonitorToken XCTestCase::addUIInterruptionMonitor(std::string_view description,
                                                              InterruptionHandler handler) {
  return UIDriver::shared().addInterruptionMonitor(description, std::move(handler));
}

void XCTestCase::removeUIInterruptionMonitor(InterruptionMonitorToken token) {
  UIDriver::shared().removeInterruptionMonitor(token);
}

}  // namespace quobrak
