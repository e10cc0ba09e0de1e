#include "platform/uiautomation/XCUIDevice.h"
#include "platform/uiautomation/XCUIScreen.h"
#include "tests/conformance/ConformanceTest.h"

namespace quobrak::conformance {
namespace {

constexpr const char* PAGE = R"(<Switch name="switch" value="0" x="0" y="0" width="50" height="50"/>)";

class DevicePrimitives : public ConformanceTest {
 protected:
  static std::string picture() {
    const std::optional<Data> png = XCUIScreen::mainScreen().pngScreenshot();
    EXPECT_TRUE(png);
    return std::string(png ? textOf(*png) : "");
  }
};

TEST_F(DevicePrimitives, HomeBringsTheHomeScreenToTheFrontAndLeavesTheApplicationRunning) {
  start(PAGE);
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::home);
  EXPECT_TRUE(phone().isInFront("com.apple.springboard"));
  EXPECT_NE(phone().running("com.example.test"), nullptr);
  EXPECT_TRUE(HOME.exists());
}

TEST_F(DevicePrimitives, TheVolumeButtonsChangeTheVolume) {
  start(PAGE);
  const double before = phone().volume();
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::volumeUp);
  EXPECT_GT(phone().volume(), before);
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::volumeDown);
  EXPECT_EQ(phone().volume(), before);
}

TEST_F(DevicePrimitives, AScreenshotIsThePictureOfTheWholeScreen) {
  start(PAGE);
  const std::string png = picture();
  EXPECT_THAT(png, ::testing::StartsWith("\x89PNG\r\n\x1a\n"));
  // The header follows the signature: its length and name, then width and height, four bytes each.
  ASSERT_GE(png.size(), 24U);
  EXPECT_EQ(png.substr(16, 8), std::string("\0\0\0\x64\0\0\0\xC8", 8));
  EXPECT_EQ(picture(), png);
  named("switch").tap();
  EXPECT_NE(picture(), png);
}

}  // namespace
}  // namespace quobrak::conformance
