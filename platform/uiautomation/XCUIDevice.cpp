#include "platform/uiautomation/XCUIDevice.h"

#include "platform/uiautomation/UIDriver.h"

namespace quobrak {

XCUIDevice& XCUIDevice::sharedDevice() {
  static XCUIDevice device;
  return device;
}

void XCUIDevice::pressButton(XCUIDeviceButton button) {
  UIDriver::shared().pressButton(button);
}

}  // namespace quobrak
