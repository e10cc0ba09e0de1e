#include "quobrakUITests/Find.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/Application.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/AnsweringDriver.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* PAGE = R"(
  <XCUIElementTypeStaticText label="Abc" x="0" y="0" width="100" height="20"/>
  <XCUIElementTypeButton name="abc-button" label="Open the abc" x="0" y="20" width="100" height="20"/>
  <XCUIElementTypeOther x="0" y="40" width="100" height="40">
    <XCUIElementTypeTextField placeholderValue="ABC here" x="0" y="40" width="100" height="20"/>
    <XCUIElementTypeButton label="abc off" enabled="false" x="0" y="60" width="100" height="20"/>
  </XCUIElementTypeOther>)";

XCUIElement find(std::string_view selector, std::int64_t nthElement = 1) {
  return Find::findByText({.selector = selector, .nthElement = nthElement, .isEnabled = true, .isTextExact = false});
}

XCUIElement findExactly(std::string_view selector) {
  return Find::findByText({.selector = selector, .nthElement = 1, .isEnabled = true, .isTextExact = true});
}

XCUIElement findDisabled(std::string_view selector) {
  return Find::findByText({.selector = selector, .nthElement = 1, .isEnabled = false, .isTextExact = false});
}

TEST(Find, AnyOfTheThreeTextsInDocumentOrder) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_EQ(find("abc", 1).label(), "Abc");
  EXPECT_EQ(find("abc", 2).label(), "Open the abc");
  EXPECT_EQ(find("abc", 3).frame().origin.y, 40);
  EXPECT_EQ(find("ABC-BUTTON").label(), "Open the abc");
  EXPECT_EQ(find("here").frame().origin.y, 40);
}

TEST(Find, AsksForTheThreeTextsInTheirOrder) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  platform.driver().operations.clear();
  find("abc");
  findExactly("Abc");
  const std::string contains =
      R"(count: the descendants, matching label CONTAINS[c] "abc" AND enabled == TRUE OR )"
      R"(identifier CONTAINS[c] "abc" AND enabled == TRUE OR placeholderValue CONTAINS[c] "abc" AND enabled == TRUE )"
      R"(of the application "com.example.test")";
  const std::string matches =
      R"(count: the descendants, matching label MATCHES "Abc" AND enabled == TRUE OR )"
      R"(identifier MATCHES "Abc" AND enabled == TRUE OR placeholderValue MATCHES "Abc" AND enabled == TRUE )"
      R"(of the application "com.example.test")";
  EXPECT_THAT(platform.driver().operations, ElementsAre(contains, matches));
}

TEST(Find, RankBelowOne) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  platform.driver().operations.clear();
  for (const std::int64_t rank : {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
    EXPECT_THAT([&] { find("abc", rank); }, testing::raisesFdslError("nthElement should be an integer greater than 1"));
  }
  EXPECT_THAT(platform.driver().operations, IsEmpty());
}

TEST(Find, RankIsCheckedBeforeTheApplication) {
  testing::TestPlatform platform(PAGE);
  EXPECT_THAT([] { find("abc", 0); }, testing::raisesFdslError("nthElement should be an integer greater than 1"));
  EXPECT_THAT([] { find("abc", 1); }, testing::raisesNotInitialised());
}

TEST(Find, RankBeyondTheMatches) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { find("abc", 4); }, testing::raisesFdslError("The expected text abc was found but there is less than "
                                                               "4 occurences on the screen"));
  EXPECT_THAT([] { find("abc", std::numeric_limits<std::int64_t>::max()); },
              testing::raisesFdslError("The expected text abc was found but there is less than 9223372036854775807 "
                                       "occurences on the screen"));
}

TEST(Find, TextThatIsNotThere) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { find("xyz"); }, testing::raisesFdslError("The expected text xyz was not found"));
  EXPECT_THAT([] { find("xyz", 7); }, testing::raisesFdslError("The expected text xyz was not found"));
}

TEST(Find, ExactTextIsARegularExpressionForTheWholeTextInItsCase) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_EQ(findExactly("A.c").label(), "Abc");
  EXPECT_EQ(findExactly("abc-.*").label(), "Open the abc");
  EXPECT_EQ(findExactly("ABC (here|there)").frame().origin.y, 40);
  EXPECT_THAT([] { findExactly("abc"); }, testing::raisesFdslError("The expected text abc was not found"));
  EXPECT_THAT([] { findExactly("Ab"); }, testing::raisesFdslError("The expected text Ab was not found"));
}

TEST(Find, TextThatIsNotExactMayBePartOfALabelOrAPlaceholder) {
  testing::TestPlatform platform(
      R"(<XCUIElementTypeButton label="OK" x="0" y="0" width="100" height="20"/>
         <XCUIElementTypeTextField placeholderValue="Book" x="0" y="20" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  EXPECT_EQ(find("ok", 1).label(), "OK");
  EXPECT_EQ(find("ok", 2).frame().origin.y, 20);
}

TEST(Find, PatternThatDoesNotCompileIsAnErrorOfTheDriver) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_THROW(findExactly("("), UIAutomationError);
}

TEST(Find, DisabledElementsAreFoundOnlyWhereTheyAreAskedFor) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_EQ(findDisabled("abc").label(), "abc off");
  EXPECT_THAT([] { findDisabled("Open"); }, testing::raisesFdslError("The expected text Open was not found"));
  EXPECT_THAT([] { find("abc off"); }, testing::raisesFdslError("The expected text abc off was not found"));
}

TEST(Find, LastElementFoundIsThatOfTheLastSearchThatSucceeded) {
  testing::TestPlatform platform(PAGE);
  EXPECT_FALSE(Find::lastElementFound.has_value());
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { find("xyz"); }, testing::raisesFdslError("The expected text xyz was not found"));
  EXPECT_FALSE(Find::lastElementFound.has_value());
  find("abc", 2);
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_EQ(Find::lastElementFound->label(), "Open the abc");
  EXPECT_THROW(find("xyz"), FWKTError);
  EXPECT_THROW(find("abc", 0), FWKTError);
  EXPECT_THROW(find("abc", 9), FWKTError);
  EXPECT_EQ(Find::lastElementFound->label(), "Open the abc");
  find("abc");
  EXPECT_EQ(Find::lastElementFound->label(), "Abc");
}

TEST(Find, LastElementFoundIsLookedForAnewEachTime) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  find("abc");
  Application::applicationKill("com.example.test");
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_FALSE(Find::lastElementFound->exists());
}

XCUIElement findClass(std::string_view selector, std::int64_t nthElement = 1) {
  return Find::findByClass({.selector = selector, .nthElement = nthElement, .isEnabled = true});
}

TEST(FindByClass, ClassesByTheirNames) {
  struct Row {
    std::string name;
    ElementType type;
  };
  const Row ROWS[] = {
      {"Button", ElementType::button},
      {"Cell", ElementType::cell},
      {"CheckBox", ElementType::checkBox},
      {"Icon", ElementType::icon},
      {"Image", ElementType::image},
      {"Other", ElementType::other},
      {"RadioButton", ElementType::radioButton},
      {"StaticText", ElementType::staticText},
      {"Table", ElementType::table},
      {"TextField", ElementType::textField},
      {"TextView", ElementType::textView},
      {"WebView", ElementType::webView},
      {"Window", ElementType::window},
  };
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("com.example.test");
  testing::AnsweringDriver::install();
  for (const auto& [name, type] : ROWS) {
    const XCUIElement element = findClass(name);
    EXPECT_EQ(std::get<DescendantsStep>(element.query().steps()[0]).type, type) << name;
    EXPECT_EQ(describe(element), "the element (at index 0) of the " + std::string(nameOf(type)) +
                                     " descendants, matching enabled == TRUE of the application "
                                     "\"com.example.test\"");
  }
}

TEST(FindByClass, NoOtherName) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  platform.driver().operations.clear();
  for (const std::string name : {"button", "BUTTON", "Button ", " Button", "Butto", "", "Any", "SecureTextField",
                                 "Switch", "Link", "SearchField", "XCUIElementTypeButton"}) {
    EXPECT_THAT([&] { findClass(name); }, testing::raisesFdslError("The expected class " + name + " does not exist"));
  }
  EXPECT_THAT(platform.driver().operations, IsEmpty());
}

TEST(FindByClass, NameIsCheckedBeforeTheRankAndTheRankBeforeTheApplication) {
  testing::TestPlatform platform;
  EXPECT_THAT([] { findClass("button", 0); }, testing::raisesFdslError("The expected class button does not exist"));
  for (const std::int64_t rank : {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
    EXPECT_THAT([&] { findClass("Button", rank); },
                testing::raisesFdslError("nthElement should be an integer greater than 1"));
  }
  EXPECT_THAT([] { findClass("Button", 1); }, testing::raisesNotInitialised());
  EXPECT_THAT(platform.driver().operations, IsEmpty());
}

TEST(FindByClass, ElementsOfTheClassInDocumentOrder) {
  testing::TestPlatform platform(std::string(PAGE) +
                                 R"(<XCUIElementTypeButton label="Last" x="0" y="80" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  EXPECT_EQ(findClass("Button", 1).label(), "Open the abc");
  EXPECT_EQ(findClass("Button", 2).label(), "Last");
  EXPECT_EQ(findClass("TextField").frame().origin.y, 40);
  EXPECT_EQ(Find::findByClass({.selector = "Button", .nthElement = 1, .isEnabled = false}).label(), "abc off");
}

TEST(FindByClass, ClassThatIsNotThere) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { findClass("Table"); }, testing::raisesFdslError("The expected class Table was not found"));
  EXPECT_THAT([] { findClass("Table", 9); }, testing::raisesFdslError("The expected class Table was not found"));
  EXPECT_THAT([] { Find::findByClass({.selector = "TextField", .nthElement = 1, .isEnabled = false}); },
              testing::raisesFdslError("The expected class TextField was not found"));
}

TEST(FindByClass, RankBeyondTheMatches) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_THAT([] { findClass("Button", 2); },
              testing::raisesFdslError("The expected class Button was found but there is less than 2 occurences on "
                                       "the screen"));
  EXPECT_THAT([] { findClass("Button", std::numeric_limits<std::int64_t>::max()); },
              testing::raisesFdslError("The expected class Button was found but there is less than "
                                       "9223372036854775807 occurences on the screen"));
}

TEST(FindByClass, FoundElementIsTheLastOneFoundUntilAnotherSearchSucceeds) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  findClass("TextField");
  EXPECT_THROW(findClass("Table"), FWKTError);
  EXPECT_THROW(findClass("button"), FWKTError);
  EXPECT_THROW(findClass("Button", 0), FWKTError);
  EXPECT_THROW(findClass("Button", 2), FWKTError);
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_EQ(Find::lastElementFound->frame().origin.y, 40);
  findClass("Button");
  EXPECT_EQ(Find::lastElementFound->label(), "Open the abc");
}

TEST(IsTextExists, TellsWhetherAnEnabledElementHasTheText) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_TRUE(Find::isTextExists("OPEN"));
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_EQ(Find::lastElementFound->label(), "Open the abc");
  EXPECT_FALSE(Find::isTextExists("abc off"));
  EXPECT_FALSE(Find::isTextExists("A.c"));
  EXPECT_EQ(Find::lastElementFound->label(), "Open the abc");
  EXPECT_TRUE(Find::isTextExists("here"));
  EXPECT_EQ(Find::lastElementFound->frame().origin.y, 40);
}

TEST(IsTextExists, ExactTextIsARegularExpressionForTheWholeText) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  EXPECT_TRUE(Find::isTextExactExists("A.c"));
  ASSERT_TRUE(Find::lastElementFound.has_value());
  EXPECT_EQ(Find::lastElementFound->label(), "Abc");
  EXPECT_FALSE(Find::isTextExactExists("abc"));
  EXPECT_FALSE(Find::isTextExactExists("Open"));
  EXPECT_FALSE(Find::isTextExactExists("abc off"));
  EXPECT_EQ(Find::lastElementFound->label(), "Abc");
}

TEST(IsTextExists, EveryErrorMeansNo) {
  testing::TestPlatform platform(PAGE);
  EXPECT_FALSE(Find::isTextExists("abc"));
  EXPECT_FALSE(Find::isTextExactExists("Abc"));
  Application::applicationStart("com.example.test");
  EXPECT_FALSE(Find::isTextExactExists("("));
  platform.driver().before = [](std::string_view, const std::string&) {
    throw std::runtime_error("The battery is empty.");
  };
  EXPECT_FALSE(Find::isTextExists("abc"));
  EXPECT_FALSE(Find::isTextExactExists("Abc"));
}

/// As a platform throws where it ends a test: no std::exception.
struct TestInterruption {};

TEST(IsTextExists, WhatAPlatformEndsATestWithPasses) {
  testing::TestPlatform platform(PAGE);
  Application::applicationStart("com.example.test");
  platform.driver().before = [](std::string_view, const std::string&) { throw TestInterruption{}; };
  EXPECT_THROW(Find::isTextExists("abc"), TestInterruption);
  EXPECT_THROW(Find::isTextExactExists("Abc"), TestInterruption);
}

TEST(LabelContains, StaticTextsInTheElementAlone) {
  testing::TestPlatform platform(R"(
    <XCUIElementTypeStaticText label="Outside" x="0" y="0" width="100" height="20"/>
    <XCUIElementTypeOther name="box" x="0" y="20" width="100" height="60">
      <XCUIElementTypeStaticText label="First line" x="0" y="20" width="100" height="20"/>
      <XCUIElementTypeStaticText label="Would Like to Access the Camera" x="0" y="40" width="100" height="20"/>
      <XCUIElementTypeButton label="Allow Once" x="0" y="60" width="100" height="20"/>
    </XCUIElementTypeOther>)");
  const XCUIApplication app("com.example.test");
  app.launch();
  const XCUIElement box = app.descendants(ElementType::any)["box"];
  EXPECT_TRUE(labelContains(box, "to access the camera"));
  EXPECT_TRUE(labelContains(box, "FIRST"));
  EXPECT_FALSE(labelContains(box, "Outside"));
  EXPECT_FALSE(labelContains(box, "Allow Once"));
  EXPECT_FALSE(labelContains(box, "to.access"));
  EXPECT_TRUE(labelContains(app, "Outside"));
}

TEST(LabelContains, IsOneQuestion) {
  testing::TestPlatform platform;
  const XCUIApplication app("com.example.test");
  app.launch();
  platform.driver().operations.clear();
  EXPECT_FALSE(labelContains(app, "a \"b\""));
  EXPECT_THAT(platform.driver().operations,
              ElementsAre(R"(exists: the element (first) of the StaticText descendants, matching )"
                          R"(label CONTAINS[c] "a \"b\"" of the application "com.example.test")"));
}

}  // namespace
}  // namespace quobrak
