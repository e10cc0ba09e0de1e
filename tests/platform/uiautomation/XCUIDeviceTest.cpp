#include "platform/uiautomation/XCUIDevice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;

TEST(XCUIDevice, RawValuesOfThePlatform) {
  EXPECT_EQ(static_cast<int>(XCUIDeviceButton::home), 1);
  EXPECT_EQ(static_cast<int>(XCUIDeviceButton::volumeUp), 2);
  EXPECT_EQ(static_cast<int>(XCUIDeviceButton::volumeDown), 3);
}

TEST(XCUIDevice, PressesButtonsThroughTheDriver) {
  TestPlatform platform;
  XCUIDevice& device = XCUIDevice::sharedDevice();
  device.pressButton(XCUIDeviceButton::volumeDown);
  device.pressButton(XCUIDeviceButton::volumeUp);
  device.pressButton(XCUIDeviceButton::home);
  EXPECT_THAT(platform.driver().operations,
              ElementsAre("pressButton: volumeDown", "pressButton: volumeUp", "pressButton: home"));
}

}  // namespace
}  // namespace quobrak
