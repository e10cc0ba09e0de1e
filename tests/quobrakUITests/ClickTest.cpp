#include "quobrakUITests/Click.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/Application.h"
#include "quobrakUITests/Find.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::Contains;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* GO = R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)";
/// Lies over `GO` where it comes after it.
constexpr const char* COVER = R"(<XCUIElementTypeImage label="Cover" x="0" y="0" width="100" height="20"/>)";

TEST(Click, TapsTheFirstElementThatContainsTheTextInAnyCase) {
  const std::string page =
      R"(<XCUIElementTypeButton label="Stop" x="0" y="0" width="100" height="20"/>
         <XCUIElementTypeButton label="Let us GO on" x="0" y="20" width="100" height="20"/>
         <XCUIElementTypeButton label="Go" x="0" y="40" width="100" height="20"/>)";
  testing::TestPlatform platform(
      page, R"([{"on": "tap", "element": "label == 'Let us GO on'", "do": [{"open": "com.apple.springboard"}]}])");
  Application::applicationStart("com.example.test");
  Click::clickByText("go");
  EXPECT_TRUE(platform.phone().isInFront("com.apple.springboard"));
}

TEST(Click, CoveredElementIsNotTapped) {
  testing::TestPlatform platform(std::string(GO) + COVER);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByText("go"); }, testing::raisesFdslError("The element Go is not hittable"));
  EXPECT_THAT(platform.driver().operations, Not(Contains(StartsWith("tap"))));
}

TEST(Click, CoveredElementWithoutLabel) {
  testing::TestPlatform platform(
      std::string(R"(<XCUIElementTypeButton name="go" x="0" y="0" width="100" height="20"/>)") + COVER);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByText("go"); }, testing::raisesFdslError("The element is not hittable"));
  EXPECT_THAT(platform.driver().operations, Not(Contains(StartsWith("tap"))));
}

TEST(Click, DisabledElementIsNotFound) {
  testing::TestPlatform platform(
      R"(<XCUIElementTypeButton label="Go" enabled="false" x="0" y="0" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByText("Go"); }, testing::raisesFdslError("The expected text Go was not found"));
}

TEST(Click, TextIsNoRegularExpression) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { Click::clickByText("G."); }, testing::raisesFdslError("The expected text G. was not found"));
}

TEST(Click, WithoutAnApplication) {
  testing::TestPlatform platform(GO);
  EXPECT_THAT([] { Click::clickByText("Go"); }, testing::raisesNotInitialised());
}

TEST(Click, ClickedElementIsTheLastOneFound) {
  testing::TestPlatform platform(GO);
  Application::applicationStart("com.example.test");
  Click::clickByText("Go");
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_EQ(Find::lastElementFound->label(), "Go");
}

TEST(TapIfHittable, TapsOnceWhereTheElementCanBeTapped) {
  testing::TestPlatform platform(GO);
  const XCUIApplication app("com.example.test");
  app.launch();
  platform.driver().operations.clear();
  tapIfHittable(app.buttons()["Go"]);
  const std::string go =
      "the element (single) of the Button descendants, keyed \"Go\" of the application "
      "\"com.example.test\"";
  EXPECT_THAT(platform.driver().operations, ::testing::ElementsAre("isHittable: " + go, "tap: " + go));
}

TEST(TapIfHittable, ElementThatIsNotThereHasNoLabel) {
  testing::TestPlatform platform(GO);
  const XCUIApplication app("com.example.test");
  app.launch();
  EXPECT_THAT([&] { tapIfHittable(app.buttons()["Gone"]); }, testing::raisesFdslError("The element is not hittable"));
}

}  // namespace
}  // namespace quobrak
