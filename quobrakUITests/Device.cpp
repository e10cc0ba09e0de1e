#include "quobrakUITests/Device.h"

#include <limits>
#include <string>

#include "platform/foundation/Clock.h"
#include "platform/foundation/FatalError.h"
#include "platform/uiautomation/XCUIDevice.h"
#include "quobrakUITests/CheckedArithmetic.h"

namespace quobrak {

void Device::pause(std::int64_t timeMillis) {
  const std::int64_t microseconds =
      checkedMultiply(timeMillis, std::int64_t{1000}, "The pause in microseconds overflows");
  if (microseconds < 0 || microseconds > std::numeric_limits<std::uint32_t>::max()) {
    fatalError("The pause of " + std::to_string(timeMillis) +
               " ms cannot be slept in one piece: it must lie between 0 and 4294967 ms");
  }
  UIDriver::shared().forgetLookups();
  Clock::shared().usleep(static_cast<std::uint32_t>(microseconds));
}

void Device::pressHome() {
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::home);
}

void Device::pressVolumeUp() {
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::volumeUp);
}

void Device::pressVolumeDown() {
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::volumeDown);
}

}  // namespace quobrak
