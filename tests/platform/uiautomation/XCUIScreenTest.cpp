#include "platform/uiautomation/XCUIScreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/uiautomation/WrappedDriver.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;
using ::testing::StartsWith;

/// Around no driver at all: it answers the one primitive itself.
class BlindDriver final : public WrappedDriver {
 public:
  BlindDriver() : WrappedDriver(nullptr) {}
  std::optional<Data> screenshot() override { return std::nullopt; }

 protected:
  void around(std::string_view, const std::function<std::string()>&, const std::function<void()>&) override {}
};

TEST(XCUIScreen, ThePictureIsThatOfTheDriver) {
  TestPlatform platform;
  const std::optional<Data> picture = XCUIScreen::mainScreen().pngScreenshot();
  ASSERT_TRUE(picture);
  EXPECT_THAT(std::string(textOf(*picture)), StartsWith("\x89PNG\r\n\x1A\n"));
  EXPECT_THAT(platform.driver().operations, ElementsAre("screenshot"));
}

TEST(XCUIScreen, NoneWhereThePhoneGivesNone) {
  UIDriver::install(std::make_unique<BlindDriver>());
  EXPECT_EQ(XCUIScreen::mainScreen().pngScreenshot(), std::nullopt);
  UIDriver::install(nullptr);
}

}  // namespace
}  // namespace quobrak
