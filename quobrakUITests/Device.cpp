#include "quobrakUITests/Device.h"

#include <limits>

#include "platform/foundation/Clock.h"
#include "platform/foundation/FatalError.h"
#include "platform/uiautomation/XCUIDevice.h"

namespace quobrak {

namespace {

/// In a millisecond.
constexpr std::int64_t MICROSECONDS_IN_ONE = 1000;

}  // namespace

std::optional<std::string> Device::pauseFault(std::int64_t timeMillis) {
  std::int64_t microseconds{};
  if (__builtin_mul_overflow(timeMillis, MICROSECONDS_IN_ONE, &microseconds)) {
    return "The pause in microseconds overflows";
  }
  if (microseconds < 0 || microseconds > std::numeric_limits<std::uint32_t>::max()) {
    return "The pause of " + std::to_string(timeMillis) +
           " ms cannot be slept in one piece: it must lie between 0 and 4294967 ms";
  }
  return std::nullopt;
}

void Device::pause(std::int64_t timeMillis) {
  if (const std::optional<std::string> fault = pauseFault(timeMillis)) {
    fatalError(*fault);
  }
  UIDriver::shared().forgetLookups();
  Clock::shared().usleep(static_cast<std::uint32_t>(timeMillis * MICROSECONDS_IN_ONE));
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
