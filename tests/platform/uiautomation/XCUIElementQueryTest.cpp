#include "platform/uiautomation/XCUIElementQuery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/uiautomation/XCUIApplication.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;

const XCUIApplication APP("com.example.test");
const std::string BUTTONS = R"(the Button descendants of the application "com.example.test")";

TEST(XCUIElementQuery, StepsFollowOneAnother) {
  const XCUIElementQuery buttons = APP.buttons();
  EXPECT_EQ(describe(buttons), BUTTONS);
  EXPECT_EQ(describe(buttons.matching(NSPredicate("enabled == TRUE"))),
            R"(the Button descendants, matching enabled == TRUE of the application "com.example.test")");
  EXPECT_EQ(describe(buttons.matchingIdentifier("ok")),
            R"(the Button descendants, keyed "ok" of the application "com.example.test")");
  EXPECT_EQ(describe(XCUIElementQuery(ApplicationRoot{"com.example.test"})), R"(the application "com.example.test")");
}

TEST(XCUIElementQuery, AStepLeavesTheShorterQueryAsItWas) {
  const XCUIElementQuery buttons = APP.buttons();
  const XCUIElementQuery longer = buttons.matchingIdentifier("ok");
  EXPECT_EQ(buttons.steps().size(), 1);
  EXPECT_EQ(longer.steps().size(), 2);
}

TEST(XCUIElementQuery, ElementsArePickedFromIt) {
  const XCUIElementQuery buttons = APP.buttons();
  EXPECT_EQ(describe(buttons.element()), "the element (single) of " + BUTTONS);
  EXPECT_EQ(describe(buttons.firstMatch()), "the element (first) of " + BUTTONS);
  EXPECT_EQ(describe(buttons.elementBoundBy(2)), "the element (at index 2) of " + BUTTONS);
  EXPECT_EQ(describe(buttons["ok"]),
            R"(the element (single) of the Button descendants, keyed "ok" of the application "com.example.test")");
  EXPECT_EQ(describe(buttons.elementMatching(NSPredicate("label CONTAINS \"a\""))),
            R"(the element (single) of the Button descendants, matching label CONTAINS "a")"
            R"( of the application "com.example.test")");
}

TEST(XCUIElementQuery, NothingIsAskedBeforeTheCount) {
  TestPlatform platform(R"(<XCUIElementTypeButton/><XCUIElementTypeImage/><XCUIElementTypeButton/>)");
  APP.launch();
  platform.driver().operations.clear();
  const XCUIElementQuery buttons = APP.buttons();
  EXPECT_THAT(platform.driver().operations, ::testing::IsEmpty());
  EXPECT_EQ(buttons.count(), 2);
  EXPECT_THAT(platform.driver().operations, ElementsAre("count: " + BUTTONS));
}

}  // namespace
}  // namespace quobrak
