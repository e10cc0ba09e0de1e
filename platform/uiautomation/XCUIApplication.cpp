#include "platform/uiautomation/XCUIApplication.h"

#include "platform/uiautomation/UIDriver.h"

namespace quobrak {

void XCUIApplication::launch() const {
  UIDriver::shared().launch(bundleIdentifier());
}

void XCUIApplication::terminate() const {
  UIDriver::shared().terminate(bundleIdentifier());
}

}  // namespace quobrak
