#include "quobrakUITests/WaitObject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/Application.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/AnsweringDriver.h"
#include "tests/quobrakUITests/QueryWords.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using std::chrono::milliseconds;
using testing::AnsweringDriver;
using testing::APP_IN_WORDS;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::textElementInWords;
using testing::textQueryInWords;
using ::testing::ThrowsMessage;

using Wait = bool (*)(std::string_view selector, std::int64_t timeout);
using WaitThenTap = void (*)(std::string_view selector, bool clickOnlyIfExists);

constexpr bool ONLY_IF_EXISTS = true;

constexpr Wait WAITS_OF_THE_APPLICATION[] = {WaitObject::waitUntilText,
                                             WaitObject::waitUntilTextExact,
                                             WaitObject::waitUntilAccessibilityField,
                                             WaitObject::waitUntilAccessibilityFieldExact,
                                             WaitObject::waitUntilGoneText,
                                             WaitObject::waitUntilGoneTextExact,
                                             WaitObject::waitUntilGoneAccessibilityField,
                                             WaitObject::waitUntilGoneAccessibilityFieldExact};

constexpr WaitThenTap WAITS_THEN_TAPS[] = {
    WaitObject::waitUntilTextBeforeClick, WaitObject::waitUntilTextExactBeforeClick,
    WaitObject::waitUntilAccessibilityFieldBeforeClick, WaitObject::waitUntilAccessibilityFieldExactBeforeClick};

/// The element that waits for; `condition` is such as `label CONTAINS[c] "a"`.
std::string matching(const std::string& condition) {
  return "of the descendants, matching " + condition + " of " + APP_IN_WORDS;
}

TEST(WaitObject, WaitsForTheOneElementThatMatches) {
  struct Row {
    Wait wait;
    std::string condition;
  };
  const Row ROWS[] = {{WaitObject::waitUntilText, R"(label CONTAINS[c] "a.b")"},
                      {WaitObject::waitUntilTextExact, R"(label MATCHES "a.b")"},
                      {WaitObject::waitUntilAccessibilityField, R"(identifier CONTAINS[c] "a.b")"},
                      {WaitObject::waitUntilAccessibilityFieldExact, R"(identifier MATCHES "a.b")"}};
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  for (const auto& [wait, condition] : ROWS) {
    driver.operations.clear();
    driver.waitOf = [](const std::string&) { return XCTWaiterResult::completed; };
    EXPECT_TRUE(wait("a.b", 1500)) << condition;
    driver.waitOf = [](const std::string&) { return XCTWaiterResult::timedOut; };
    EXPECT_FALSE(wait("a.b", 0)) << condition;
    EXPECT_THAT(driver.operations, ElementsAre("wait 1.5 s for existence: the element (single) " + matching(condition),
                                               "wait 0 s for existence: the element (single) " + matching(condition)));
  }
}

TEST(WaitObject, WaitsUntilTheFirstElementThatMatchesNoLongerDoes) {
  struct Row {
    Wait wait;
    std::string condition;
  };
  const Row ROWS[] = {{WaitObject::waitUntilGoneText, R"(label CONTAINS[c] "a.b")"},
                      {WaitObject::waitUntilGoneTextExact, R"(label MATCHES "a.b")"},
                      {WaitObject::waitUntilGoneAccessibilityField, R"(identifier CONTAINS[c] "a.b")"},
                      {WaitObject::waitUntilGoneAccessibilityFieldExact, R"(identifier MATCHES "a.b")"}};
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  for (const auto& [wait, condition] : ROWS) {
    driver.operations.clear();
    EXPECT_TRUE(wait("a.b", 2500)) << condition;
    EXPECT_THAT(driver.operations,
                ElementsAre("wait 2.5 s for NOT " + condition + ": the element (first) " + matching(condition)));
  }
}

TEST(WaitObject, OnlyACompletedWaitHasComeAbout) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  for (const XCTWaiterResult result : {XCTWaiterResult::timedOut, XCTWaiterResult::incorrectOrder,
                                       XCTWaiterResult::invertedFulfillment, XCTWaiterResult::interrupted}) {
    driver.waitOf = [result](const std::string&) { return result; };
    for (const Wait wait : WAITS_OF_THE_APPLICATION) {
      EXPECT_FALSE(wait("a", 1));
    }
  }
}

TEST(WaitObject, WaitsForAButtonOfTheSystemWithoutAnApplication) {
  testing::TestPlatform platform;
  AnsweringDriver& driver = AnsweringDriver::install();
  EXPECT_TRUE(WaitObject::waitUntilTextOnSystemPopup("Allow \"all\"", 1500));
  driver.waitOf = [](const std::string&) { return XCTWaiterResult::timedOut; };
  EXPECT_FALSE(WaitObject::waitUntilTextOnSystemPopup("OK", 30000));
  EXPECT_THAT(driver.operations, ElementsAre(R"(wait 1.5 s for existence: the element (single) of the Button )"
                                             R"(descendants, keyed "Allow "all"" of the application )"
                                             R"("com.apple.springboard")",
                                             R"(wait 30 s for existence: the element (single) of the Button )"
                                             R"(descendants, keyed "OK" of the application "com.apple.springboard")"));
}

TEST(WaitObject, TimeoutsOfAnySizeAreHandedOn) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  const AnsweringDriver& driver = AnsweringDriver::install();
  WaitObject::waitUntilText("a", -1);
  WaitObject::waitUntilGoneText("a", std::numeric_limits<std::int64_t>::max());
  WaitObject::waitUntilTextOnSystemPopup("a", std::numeric_limits<std::int64_t>::min());
  ASSERT_EQ(driver.operations.size(), 3U);
  EXPECT_TRUE(driver.operations[0].starts_with("wait -0.001 s for existence: ")) << driver.operations[0];
  EXPECT_TRUE(driver.operations[1].starts_with("wait 9.22337e+15 s for NOT label ")) << driver.operations[1];
  EXPECT_TRUE(driver.operations[2].starts_with("wait -9.22337e+15 s for existence: ")) << driver.operations[2];
}

TEST(WaitObject, WithoutAnApplication) {
  testing::TestPlatform platform;
  const AnsweringDriver& driver = AnsweringDriver::install();
  for (const Wait wait : WAITS_OF_THE_APPLICATION) {
    EXPECT_THAT([wait] { wait("a", 1000); }, testing::raisesNotInitialised());
  }
  for (const WaitThenTap waitThenTap : WAITS_THEN_TAPS) {
    EXPECT_THAT([&] { waitThenTap("a", ONLY_IF_EXISTS); }, testing::raisesNotInitialised());
    EXPECT_THAT([&] { waitThenTap("a", !ONLY_IF_EXISTS); }, testing::raisesNotInitialised());
  }
  EXPECT_THAT(driver.operations, IsEmpty());
}

TEST(WaitObject, WhatThePhoneShows) {
  struct Row {
    Wait wait;
    std::string_view selector;
    bool comesAbout;
  };
  const Row ROWS[] = {
      {WaitObject::waitUntilText, "sav", true},
      {WaitObject::waitUntilText, "save-button", false},
      {WaitObject::waitUntilText, "Type here", false},
      {WaitObject::waitUntilText, "S.ve", false},
      {WaitObject::waitUntilText, "Off", true},
      {WaitObject::waitUntilTextExact, "sav", false},
      {WaitObject::waitUntilTextExact, "save", false},
      {WaitObject::waitUntilTextExact, "S.ve", true},
      {WaitObject::waitUntilAccessibilityField, "SAVE-B", true},
      {WaitObject::waitUntilAccessibilityField, "Save", true},
      {WaitObject::waitUntilAccessibilityField, "off", false},
      {WaitObject::waitUntilAccessibilityFieldExact, "save-b", false},
      {WaitObject::waitUntilAccessibilityFieldExact, "save-.*", true},
      {WaitObject::waitUntilGoneText, "sav", false},
      {WaitObject::waitUntilGoneText, "Saved", true},
      {WaitObject::waitUntilGoneTextExact, "sav", true},
      {WaitObject::waitUntilGoneTextExact, "Save", false},
      {WaitObject::waitUntilGoneAccessibilityField, "SAVE-B", false},
      {WaitObject::waitUntilGoneAccessibilityField, "off", true},
      {WaitObject::waitUntilGoneAccessibilityFieldExact, "save-b", true},
      {WaitObject::waitUntilGoneAccessibilityFieldExact, "save-button", false},
  };
  testing::TestPlatform platform(
      R"(<XCUIElementTypeButton name="save-button" label="Save" x="0" y="0" width="100" height="20"/>
         <XCUIElementTypeButton label="Off" enabled="false" x="0" y="20" width="100" height="20"/>
         <XCUIElementTypeTextField placeholderValue="Type here" x="0" y="40" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  for (const auto& [wait, selector, comesAbout] : ROWS) {
    const auto start = platform.elapsed();
    EXPECT_EQ(wait(selector, 1500), comesAbout) << selector;
    EXPECT_EQ(platform.elapsed() - start, comesAbout ? milliseconds(0) : milliseconds(1500)) << selector;
    EXPECT_EQ(wait(selector, 0), comesAbout) << selector;
  }
}

TEST(WaitObject, ButtonOfAnAlert) {
  testing::TestPlatform platform("", R"([{"on": "launch", "do": [{"askPermission": "camera"}]}])");
  EXPECT_FALSE(WaitObject::waitUntilTextOnSystemPopup("OK", 0));
  Application::applicationStart("com.example.test");
  EXPECT_TRUE(WaitObject::waitUntilTextOnSystemPopup("OK", 0));
  EXPECT_FALSE(WaitObject::waitUntilTextOnSystemPopup("ok", 0));
}

TEST(WaitThenTap, EachWaitIsFollowedByATapByText) {
  struct Row {
    WaitThenTap waitThenTap;
    std::string attribute;
    std::string comparison;
  };
  const Row ROWS[] = {
      {WaitObject::waitUntilTextBeforeClick, "label", "CONTAINS[c]"},
      {WaitObject::waitUntilTextExactBeforeClick, "label", "MATCHES"},
      {WaitObject::waitUntilAccessibilityFieldBeforeClick, "identifier", "CONTAINS[c]"},
      {WaitObject::waitUntilAccessibilityFieldExactBeforeClick, "identifier", "MATCHES"},
  };
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  for (const Row& row : ROWS) {
    const std::string element = textElementInWords(row.comparison, "go");
    const std::string wait =
        " s for existence: the element (single) " + matching(row.attribute + " " + row.comparison + " \"go\"");
    for (const bool isOptional : {ONLY_IF_EXISTS, !ONLY_IF_EXISTS}) {
      driver.operations.clear();
      row.waitThenTap("go", isOptional);
      EXPECT_THAT(driver.operations, ElementsAre((isOptional ? "wait 2" : "wait 10") + wait,
                                                 "count: " + textQueryInWords(row.comparison, "go"),
                                                 "isHittable: " + element, "tap: " + element));
    }
  }
}

TEST(WaitThenTap, NothingThatAppearsIsLeftAloneWhereTheTapIsOptional) {
  testing::TestPlatform platform(R"(<XCUIElementTypeButton label="Stop" x="0" y="0" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  for (const WaitThenTap waitThenTap : WAITS_THEN_TAPS) {
    platform.driver().operations.clear();
    const auto start = platform.elapsed();
    waitThenTap("Go", ONLY_IF_EXISTS);
    EXPECT_EQ(platform.elapsed() - start, milliseconds(2000));
    EXPECT_EQ(platform.driver().operations.size(), 1U);
  }
}

TEST(WaitThenTap, NothingThatAppearsIsAnErrorWhereTheTapIsRequired) {
  testing::TestPlatform platform(R"(<XCUIElementTypeButton label="Stop" x="0" y="0" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  for (const WaitThenTap waitThenTap : WAITS_THEN_TAPS) {
    const auto start = platform.elapsed();
    EXPECT_THAT([&] { waitThenTap("Go", !ONLY_IF_EXISTS); },
                testing::raisesFdslError("The expected text Go was not found"));
    EXPECT_EQ(platform.elapsed() - start, milliseconds(10000));
  }
}

TEST(WaitThenTap, RequiredTapFindsWhatTheWaitDidNotLookFor) {
  testing::TestPlatform platform(
      R"(<XCUIElementTypeTextField placeholderValue="Go" x="0" y="0" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  const auto start = platform.elapsed();
  WaitObject::waitUntilTextBeforeClick("go", !ONLY_IF_EXISTS);
  EXPECT_EQ(platform.elapsed() - start, milliseconds(10000));
  EXPECT_TRUE(platform.driver().operations.back().starts_with("tap: "));
}

TEST(WaitThenTap, FailuresOfTheTapPassUnchanged) {
  testing::TestPlatform platform(
      R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>
         <XCUIElementTypeImage label="Cover" x="0" y="0" width="100" height="20"/>
         <XCUIElementTypeButton label="Off" enabled="false" x="0" y="20" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  for (const bool isOptional : {ONLY_IF_EXISTS, !ONLY_IF_EXISTS}) {
    EXPECT_THAT([&] { WaitObject::waitUntilTextBeforeClick("Go", isOptional); },
                testing::raisesFdslError("The element Go is not hittable"));
    EXPECT_THAT([&] { WaitObject::waitUntilTextExactBeforeClick("Off", isOptional); },
                testing::raisesFdslError("The expected text Off was not found"));
  }
}

TEST(WaitThenTap, FailureOfTheWaitTapsNothing) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  AnsweringDriver& driver = AnsweringDriver::install();
  driver.before = [](const std::string&) { throw UIAutomationError("The phone is gone."); };
  for (const WaitThenTap waitThenTap : WAITS_THEN_TAPS) {
    driver.operations.clear();
    EXPECT_THAT([&] { waitThenTap("Go", !ONLY_IF_EXISTS); }, ThrowsMessage<UIAutomationError>("The phone is gone."));
    EXPECT_EQ(driver.operations.size(), 1U);
  }
}

}  // namespace
}  // namespace quobrak
