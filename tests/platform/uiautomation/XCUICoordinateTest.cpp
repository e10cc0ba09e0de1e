#include "platform/uiautomation/XCUICoordinate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>

#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;
using ::testing::ThrowsMessage;

TEST(XCUICoordinate, IsAPlaceWithinAnElement) {
  const XCUICoordinate point(XCUIApplication("com.example.test"), {-1, 0.25});
  EXPECT_EQ(describe(point.referencedElement()), R"(the application "com.example.test")");
  EXPECT_EQ(point.normalizedOffset(), (NormalizedOffset{-1, 0.25}));
  EXPECT_EQ(describe(point), R"(the point (-1, 0.25) of the application "com.example.test")");
}

TEST(XCUICoordinate, ActsThroughTheDriver) {
  TestPlatform platform;
  const XCUIApplication app("com.example.test");
  app.launch();
  platform.driver().operations.clear();
  const auto launched = platform.elapsed();
  const XCUICoordinate point(app, {0.5, 0.5});
  point.tap();
  point.press(1500ms);
  EXPECT_EQ(platform.elapsed() - launched, 1500ms);
  platform.driver().before = [](std::string_view name, const std::string&) {
    throw UIAutomationError(std::string(name) + " is not possible");
  };
  EXPECT_THAT(
      [&] {
        point.pressThenDrag(1s, XCUICoordinate(app, {0, 1}));
      },
      ThrowsMessage<UIAutomationError>("pressThenDrag is not possible"));
  EXPECT_THAT(platform.driver().operations,
              ElementsAre(R"(tap: the point (0.5, 0.5) of the application "com.example.test")",
                          R"(press: the point (0.5, 0.5) of the application "com.example.test")",
                          R"(pressThenDrag: the point (0.5, 0.5) of the application "com.example.test")"
                          R"( to the point (0, 1) of the application "com.example.test")"));
}

}  // namespace
}  // namespace quobrak
