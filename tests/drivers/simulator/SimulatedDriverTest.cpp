#include "drivers/simulator/SimulatedDriver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "platform/uiautomation/XCUIDevice.h"
#include "platform/uiautomation/XCUIScreen.h"
#include "tests/support/MemoryPhoneFiles.h"
#include "tests/support/TestPlatform.h"

namespace quobrak::simulator {
namespace {

using namespace std::chrono_literals;
using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

const XCUIApplication APP("com.example.test");
const XCUIApplication HOME("com.apple.springboard");
const XCUIApplication OTHER("com.example.other");

constexpr const char* PAGE = R"(
  <Button name="ok" label="OK" value="1" selected="false" x="0" y="0" width="50" height="50"/>
  <Other name="group">
    <Other name="inner"><StaticText name="note" label="Lamp" value="Lamp" x="0" y="50" width="50" height="20"/></Other>
  </Other>
  <TextField name="field" placeholderValue="Name" x="0" y="70" width="50" height="20"/>
  <Switch name="switch" value="0" x="50" y="0" width="50" height="50"/>
  <Button name="hidden" label="OK" enabled="false" selected="true" x="500" y="0" width="50" height="50"/>)";

XCUIElement named(const std::string& identifier) {
  return APP.descendants(ElementType::any)[identifier];
}

template <class Action>
void expectFailure(Action action, const std::string& text) {
  EXPECT_THAT(action, ThrowsMessage<UIAutomationError>(text));
}

class SimulatedDriverTest : public ::testing::Test {
 protected:
  /// The phone with its application started; time counts from then on.
  void start(const std::string& page = PAGE, const std::string& rules = "[]") {
    switchOn(page, rules);
    APP.launch();
    started_ = platform_->elapsed();
  }

  void switchOn(const std::string& page = PAGE, const std::string& rules = "[]") {
    platform_.emplace(page, rules);
    started_ = 0ms;
  }

  std::chrono::milliseconds elapsed() const { return platform_->elapsed() - started_; }
  UIDriver& driver() { return platform_->driver(); }

  std::optional<TestPlatform> platform_;
  std::chrono::milliseconds started_{};
};

// For who is on the same machine.

TEST(SimulatedDriver, TellsWhichElementsAQueryFindsAndWhetherTheyCanBeTouched) {
  VirtualClock clock;
  SimulatedDriver driver(loadPhone(quobrak::testing::smallPhone(PAGE)), clock);
  EXPECT_THAT(driver.elements(APP.buttons()), IsEmpty()) << "it does not run";
  driver.launch("com.example.test");
  const std::vector<const Element*> buttons = driver.elements(APP.buttons());
  ASSERT_EQ(buttons.size(), 2U);
  EXPECT_EQ(buttons[0]->identifier, "ok");
  EXPECT_EQ(buttons[1]->identifier, "hidden");
  EXPECT_TRUE(driver.isHittableNow(*buttons[0]));
  EXPECT_FALSE(driver.isHittableNow(*buttons[1])) << "it lies outside the screen";
  driver.launch("com.apple.springboard");
  EXPECT_FALSE(driver.isHittableNow(*buttons[0])) << "another application is in front";
}

// Applications.

TEST_F(SimulatedDriverTest, LaunchTakesTheLaunchTime) {
  switchOn();
  APP.launch();
  EXPECT_EQ(elapsed(), 500ms);
  EXPECT_TRUE(APP.exists());
  EXPECT_TRUE(named("ok").exists());
}

TEST_F(SimulatedDriverTest, LaunchRestartsAnApplicationThatRuns) {
  start();
  named("switch").tap();
  EXPECT_EQ(named("switch").value(), ElementValue("1"));
  APP.launch();
  EXPECT_EQ(elapsed(), 500ms);
  EXPECT_EQ(named("switch").value(), ElementValue("0"));
}

TEST_F(SimulatedDriverTest, LaunchOfWhatIsNotInstalledRaises) {
  switchOn();
  expectFailure([] { OTHER.launch(); },
                R"(launch of the application "com.example.other" on the simulated phone: it is not installed; )"
                "installed are com.apple.springboard, com.example.test");
}

TEST_F(SimulatedDriverTest, TerminateEndsTheApplication) {
  start();
  APP.terminate();
  EXPECT_FALSE(APP.exists());
  EXPECT_TRUE(platform_->phone().isInFront("com.apple.springboard"));
}

TEST_F(SimulatedDriverTest, TerminateDoesNothingForWhatDoesNotRunOrIsNotInstalled) {
  switchOn();
  APP.terminate();
  OTHER.terminate();
  EXPECT_TRUE(HOME.exists());
  EXPECT_EQ(elapsed(), 0ms);
}

// Asking.

TEST_F(SimulatedDriverTest, QuestionsAboutAnElement) {
  start();
  EXPECT_TRUE(named("ok").exists());
  EXPECT_TRUE(named("ok").isHittable());
  EXPECT_EQ(named("ok").label(), "OK");
  EXPECT_EQ(named("ok").identifier(), "ok");
  EXPECT_EQ(named("ok").value(), ElementValue("1"));
  EXPECT_EQ(named("ok").frame(), (Rect{{0, 0}, {50, 50}}));
  EXPECT_EQ(named("note").value(), ElementValue());
  EXPECT_FALSE(named("hidden").isHittable());
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(SimulatedDriverTest, QuestionsAboutAnAbsentElementDoNotRaise) {
  start();
  for (const XCUIElement& absent :
       {named("nobody"), APP.buttons().elementBoundBy(2), XCUIElement(OTHER), OTHER.buttons().firstMatch(),
        APP.windows().elementBoundBy(1).buttons().element()}) {
    EXPECT_FALSE(absent.exists()) << describe(absent);
    EXPECT_FALSE(absent.isHittable()) << describe(absent);
    EXPECT_EQ(absent.label(), "") << describe(absent);
    EXPECT_EQ(absent.identifier(), "") << describe(absent);
    EXPECT_EQ(absent.value(), ElementValue()) << describe(absent);
    EXPECT_EQ(absent.frame(), Rect()) << describe(absent);
  }
}

TEST_F(SimulatedDriverTest, AnApplicationThatDoesNotRunHasNoElements) {
  switchOn();
  EXPECT_FALSE(APP.exists());
  EXPECT_EQ(APP.descendants(ElementType::any).count(), 0);
  EXPECT_EQ(APP.buttons().firstMatch().debugDescription(),
            "Query chain:\n →Find: Application 'com.example.test'\n  ↪︎Find: Descendants matching type Button\n"
            "    ↪︎Find: Element at index 0\n");
}

TEST_F(SimulatedDriverTest, AnApplicationBehindAnotherKeepsItsElementsButNoneIsHittable) {
  start();
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::home);
  EXPECT_TRUE(named("ok").exists());
  EXPECT_EQ(named("ok").label(), "OK");
  EXPECT_FALSE(named("ok").isHittable());
  EXPECT_FALSE(APP.isHittable());
  EXPECT_TRUE(HOME.isHittable());
}

TEST_F(SimulatedDriverTest, ElementsComeInDocumentOrderWithoutTheRoot) {
  start();
  const XCUIElementQuery all = APP.windows().firstMatch().descendants(ElementType::any);
  std::vector<std::string> identifiers;
  for (std::size_t index = 0; index < all.count(); ++index) {
    identifiers.push_back(all.elementBoundBy(index).identifier());
  }
  EXPECT_THAT(identifiers, ElementsAre("ok", "group", "inner", "note", "field", "switch", "hidden"));
}

TEST_F(SimulatedDriverTest, NoElementIsCountedTwice) {
  start();
  const XCUIElementQuery others = APP.descendants(ElementType::other);
  EXPECT_EQ(others.count(), 2);
  EXPECT_EQ(others.appending(DescendantsStep{ElementType::staticText}).count(), 1);
}

TEST_F(SimulatedDriverTest, ASingleMatchIsTheFirstOfSeveral) {
  start();
  EXPECT_EQ(APP.buttons().element().identifier(), "ok");
  EXPECT_EQ(APP.buttons()["OK"].identifier(), "ok");
}

TEST_F(SimulatedDriverTest, AnIdentifierStepComparesTheIdentifierOrTheLabel) {
  start();
  EXPECT_EQ(APP.buttons().matchingIdentifier("OK").count(), 2);
  EXPECT_EQ(APP.buttons().matchingIdentifier("hidden").count(), 1);
}

TEST_F(SimulatedDriverTest, PredicatesSeeTheAttributes) {
  start();
  struct Row {
    std::string_view format;
    std::string_view identifier;
  };
  const Row ROWS[] = {
      {"label == 'Lamp'", "note"},
      {"identifier == 'inner'", "inner"},
      {"placeholderValue == 'Name'", "field"},
      {"value == '0'", "switch"},
      {"enabled == FALSE", "hidden"},
      {"selected == TRUE", "hidden"},
      {"exists == TRUE AND label == 'OK'", "ok"},
      {"hittable == FALSE AND label == 'OK'", "hidden"},
  };
  for (const auto& [format, identifier] : ROWS) {
    const auto all = APP.windows().firstMatch().descendants(ElementType::any);
    EXPECT_EQ(all.elementMatching(NSPredicate(format)).identifier(), identifier) << format;
  }
}

TEST_F(SimulatedDriverTest, AnUnknownAttributeRaisesWithTheOperationNamed) {
  start();
  const XCUIElementQuery query = APP.buttons().matching(NSPredicate("title == 'OK'"));
  const std::string reason =
      R"(the Button descendants, matching title == "OK" of the application "com.example.test" on the simulated phone: )"
      R"(elements have no attribute "title"; they have label, identifier, placeholderValue, value, enabled, selected, )"
      "exists, hittable";
  expectFailure([&] { query.count(); }, "count of " + reason);
  const XCUIElement element = query.firstMatch();
  const std::string ofElement = " of the element (first) of " + reason;
  expectFailure([&] { element.exists(); }, "exists" + ofElement);
  expectFailure([&] { element.label(); }, "label" + ofElement);
  expectFailure([&] { element.identifier(); }, "identifier" + ofElement);
  expectFailure([&] { element.value(); }, "value" + ofElement);
  expectFailure([&] { element.frame(); }, "frame" + ofElement);
  expectFailure([&] { element.isHittable(); }, "isHittable" + ofElement);
  expectFailure([&] { element.debugDescription(); }, "debugDescription" + ofElement);
  expectFailure([&] { element.waitForExistence(1s); }, "waitForExistence" + ofElement);
  expectFailure([&] { element.tap(); }, "tap" + ofElement);
  expectFailure([&] { element.typeText("a"); }, "typeText" + ofElement);
}

TEST_F(SimulatedDriverTest, APatternThatDoesNotCompileRaisesWhenItIsAskedFor) {
  start();
  const XCUIElementQuery query = APP.buttons().matching(NSPredicate("label MATCHES '('"));
  expectFailure([&] { query.count(); },
                R"(count of the Button descendants, matching label MATCHES "(" of the application "com.example.test" )"
                R"(on the simulated phone: the regular expression "(" cannot be read: a parenthesis has no partner, )"
                "at character 1");
}

TEST_F(SimulatedDriverTest, NoPatternIsAskedForInAnApplicationThatDoesNotRun) {
  switchOn();
  EXPECT_EQ(APP.buttons().matching(NSPredicate("label MATCHES '('")).count(), 0);
  EXPECT_FALSE(APP.buttons().elementMatching(NSPredicate("label MATCHES '('")).exists());
}

// Waiting.

TEST_F(SimulatedDriverTest, AWaitChecksAtOnce) {
  start();
  for (const double timeout : {10.0, 0.0, -1.0, NOT_A_NUMBER, INFINITE}) {
    EXPECT_EQ(driver().waitForExistence(named("ok"), Seconds(timeout)), XCTWaiterResult::completed) << timeout;
    EXPECT_EQ(driver().waitForPredicate(named("ok"), NSPredicate("enabled == TRUE"), Seconds(timeout)),
              XCTWaiterResult::completed)
        << timeout;
  }
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(SimulatedDriverTest, AWaitWithoutTimeChecksOnce) {
  start();
  for (const double timeout : {0.0, -1.0, -INFINITE, NOT_A_NUMBER}) {
    EXPECT_EQ(driver().waitForExistence(named("nobody"), Seconds(timeout)), XCTWaiterResult::timedOut) << timeout;
    EXPECT_EQ(driver().waitForPredicate(named("ok"), NSPredicate("enabled == FALSE"), Seconds(timeout)),
              XCTWaiterResult::timedOut)
        << timeout;
  }
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(SimulatedDriverTest, AWaitTimesOutAtItsDeadline) {
  start();
  EXPECT_EQ(driver().waitForExistence(named("nobody"), 1234ms), XCTWaiterResult::timedOut);
  EXPECT_EQ(elapsed(), 1234ms);
  EXPECT_EQ(driver().waitForPredicate(named("ok"), NSPredicate("enabled == FALSE"), 66ms), XCTWaiterResult::timedOut);
  EXPECT_EQ(elapsed(), 1300ms);
}

TEST_F(SimulatedDriverTest, AHugeTimeoutSaturates) {
  start();
  EXPECT_EQ(driver().waitForExistence(named("ok"), Seconds(1e300)), XCTWaiterResult::completed);
  EXPECT_EQ(driver().waitForPredicate(named("nobody"), NSPredicate("exists == FALSE"), Seconds(1e300)),
            XCTWaiterResult::completed);
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(SimulatedDriverTest, WaitingForAnAbsentElementToVanishCompletesAtOnce) {
  switchOn();
  for (const XCUIElement& absent : {named("nobody"), XCUIElement(OTHER)}) {
    EXPECT_EQ(driver().waitForPredicate(absent, NSPredicate("exists == FALSE"), 10s), XCTWaiterResult::completed);
    EXPECT_EQ(driver().waitForPredicate(absent, NSPredicate("label == '' AND NOT value == ''"), 10s),
              XCTWaiterResult::completed);
  }
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(SimulatedDriverTest, AWaitForWhatElementsDoNotHaveRaises) {
  start();
  expectFailure([this] { driver().waitForPredicate(APP, NSPredicate("label MATCHES '('"), 1s); },
                R"(waitForPredicate of the application "com.example.test" on the simulated phone: the regular )"
                R"(expression "(" cannot be read: a parenthesis has no partner, at character 1)");
  expectFailure(
      [this] { driver().waitForPredicate(APP, NSPredicate("title == 'a'"), 1s); },
      R"(waitForPredicate of the application "com.example.test" on the simulated phone: elements have no )"
      R"(attribute "title"; they have label, identifier, placeholderValue, value, enabled, selected, exists, )"
      "hittable");
  EXPECT_EQ(elapsed(), 0ms);
}

// Acting.

TEST_F(SimulatedDriverTest, ActingOnAnAbsentElementRaises) {
  start();
  const XCUIElement nobody = named("nobody");
  const std::string reason =
      R"(the element (single) of the descendants, keyed "nobody" of the application "com.example.test")"
      " on the simulated phone: it does not exist";
  expectFailure([&] { nobody.tap(); }, "tap of " + reason);
  expectFailure([&] { nobody.press(1s); }, "press of " + reason);
  expectFailure([&] { nobody.typeText("a"); }, "typeText of " + reason);
  expectFailure([&] { nobody.coordinate({0.5, 1}).tap(); }, "tap of the point (0.5, 1) of " + reason);
  expectFailure([&] { nobody.coordinate({0.5, 1}).press(1s); }, "press of the point (0.5, 1) of " + reason);
  expectFailure([] { OTHER.tap(); },
                R"(tap of the application "com.example.other" on the simulated phone: it does not exist)");
  EXPECT_EQ(elapsed(), 0ms);
}

TEST_F(SimulatedDriverTest, TapAndPressLandAtTheHitPoint) {
  start();
  named("switch").tap();
  EXPECT_EQ(named("switch").value(), ElementValue("1"));
  named("switch").press(2s);
  EXPECT_EQ(named("switch").value(), ElementValue("0"));
  EXPECT_EQ(elapsed(), 2s);
}

TEST_F(SimulatedDriverTest, ATapDoesNotAskWhetherTheElementIsHittable) {
  start(R"(<Button name="below" x="0" y="0" width="50" height="50"/>)"
        R"(<Switch name="above" value="0" x="0" y="0" width="50" height="50"/>)");
  EXPECT_FALSE(named("below").isHittable());
  named("below").tap();
  EXPECT_EQ(named("above").value(), ElementValue("1"));
}

TEST_F(SimulatedDriverTest, AnElementThatIsNotOnTheScreenCannotBeTapped) {
  start();
  expectFailure([] { named("hidden").tap(); },
                R"(tap of the element (single) of the descendants, keyed "hidden" of the application )"
                R"("com.example.test" on the simulated phone: no part of it is on the screen)");
}

TEST_F(SimulatedDriverTest, APressTakesItsDuration) {
  start();
  struct Row {
    double duration;
    std::chrono::milliseconds elapsed;
  };
  for (const auto& [duration, expected] :
       {Row{1.5, 1500ms}, Row{0, 0ms}, Row{-1, 0ms}, Row{NOT_A_NUMBER, 0ms}, Row{-INFINITE, 0ms}}) {
    started_ = platform_->elapsed();
    named("ok").press(Seconds(duration));
    EXPECT_EQ(elapsed(), expected) << duration;
    named("ok").coordinate({0.5, 0.5}).press(Seconds(duration));
    EXPECT_EQ(elapsed(), 2 * expected) << duration;
  }
}

TEST_F(SimulatedDriverTest, ATapOnAPointLandsWithinTheElementOrBesideIt) {
  start();
  named("ok").coordinate({0.9, 0.9}).tap();
  EXPECT_EQ(named("switch").value(), ElementValue("0"));
  named("ok").coordinate({1.5, 0.5}).tap();
  EXPECT_EQ(named("switch").value(), ElementValue("1"));
}

TEST_F(SimulatedDriverTest, APointOutsideTheScreenOrNotFiniteLandsOnNothing) {
  start(R"(<Switch name="switch" value="0" x="-500" y="-500" width="2000" height="2000"/>)");
  for (const NormalizedOffset offset :
       {NormalizedOffset{-0.1, 0.5}, NormalizedOffset{1, 0.5}, NormalizedOffset{0.5, 7},
        NormalizedOffset{INFINITE, 0.5}, NormalizedOffset{0.5, -INFINITE}, NormalizedOffset{NOT_A_NUMBER, 0.5}}) {
    APP.coordinate(offset).tap();
    APP.coordinate(offset).press(1ms);
    EXPECT_EQ(named("switch").value(), ElementValue("0")) << offset.dx << ", " << offset.dy;
  }
}

TEST_F(SimulatedDriverTest, TextIsTypedIntoTheFieldThatHasTheFocus) {
  start();
  named("field").tap();
  named("field").typeText("Ada");
  EXPECT_EQ(named("field").value(), ElementValue("Ada"));
  APP.typeText(" L.");
  EXPECT_EQ(named("field").value(), ElementValue("Ada L."));
}

TEST_F(SimulatedDriverTest, TypingWithoutTheFocusRaises) {
  start();
  const std::string reason = " on the simulated phone: neither it nor anything in it has the keyboard's focus";
  expectFailure([] { APP.typeText("a"); }, R"(typeText of the application "com.example.test")" + reason);
  named("field").tap();
  expectFailure(
      [] { named("ok").typeText("a"); },
      R"(typeText of the element (single) of the descendants, keyed "ok" of the application "com.example.test")" +
          reason);
  EXPECT_EQ(named("field").value(), ElementValue());
}

constexpr const char* LIST = R"(
  <Table name="list" x="0" y="0" width="100" height="100">
    <Cell name="first" x="0" y="0" width="100" height="80"/><Cell name="last" x="0" y="80" width="100" height="120"/>
  </Table>
  <Button name="beside" x="0" y="100" width="100" height="100"/>
  <Button name="outside" x="0" y="300" width="100" height="100"/>)";

Point placeOf(const std::string& identifier) {
  return named(identifier).frame().origin;
}

TEST_F(SimulatedDriverTest, ASwipeMovesByThreeQuartersAndADragWithTheFinger) {
  start(LIST);
  ASSERT_EQ(placeOf("last"), (Point{0, 80}));
  named("first").swipe(SwipeDirection::up);
  EXPECT_EQ(placeOf("last"), (Point{0, 5}));
  named("list").swipe(SwipeDirection::down);
  EXPECT_EQ(placeOf("last"), (Point{0, 80}));
  named("list").coordinate({0.5, 0.5}).pressThenDrag(1s, named("list").coordinate({0.5, 0.25}));
  EXPECT_EQ(placeOf("last"), (Point{0, 55}));
  EXPECT_EQ(elapsed(), 1s);
  APP.swipe(SwipeDirection::down);
  named("beside").swipe(SwipeDirection::down);
  EXPECT_EQ(placeOf("last"), (Point{0, 55})) << "the button is no part of the list";
}

TEST_F(SimulatedDriverTest, ADragFromOutsideTheScreenLandsOnNothing) {
  start(LIST);
  const XCUICoordinate inside = APP.coordinate({0.5, 0.1});
  for (const NormalizedOffset offset : {NormalizedOffset{-0.1, 0.2}, NormalizedOffset{0.5, 7},
                                        NormalizedOffset{INFINITE, 0.5}, NormalizedOffset{NOT_A_NUMBER, 0.5}}) {
    APP.coordinate(offset).pressThenDrag(0s, inside);
    EXPECT_EQ(placeOf("first"), (Point{0, 0})) << offset.dx << ", " << offset.dy;
  }
  inside.pressThenDrag(0s, APP.coordinate({0.5, NOT_A_NUMBER}));
  inside.pressThenDrag(0s, APP.coordinate({0.5, -INFINITE}));
  EXPECT_EQ(placeOf("first"), (Point{0, 0})) << "where the finger went nobody can tell";
  inside.pressThenDrag(0s, APP.coordinate({0.5, -0.5}));
  EXPECT_EQ(placeOf("first"), (Point{0, -20})) << "as far as the edge of the screen";
}

TEST_F(SimulatedDriverTest, WhatIsNotThereOrNotOnTheScreenCannotBeSwipedOrDragged) {
  start(LIST);
  const std::string notThere = " on the simulated phone: it does not exist";
  const XCUIElement nobody = named("nobody");
  expectFailure([&] { nobody.swipe(SwipeDirection::up); }, "swipe of " + describe(nobody) + notThere);
  expectFailure([] { named("outside").swipe(SwipeDirection::up); },
                "swipe of " + describe(named("outside")) + " on the simulated phone: no part of it is on the screen");
  const XCUICoordinate there = APP.coordinate({0.5, 0.1});
  const XCUICoordinate nowhere = nobody.coordinate({0, 0});
  expectFailure([&] { nowhere.pressThenDrag(0s, there); }, "pressThenDrag of " + describe(nowhere) + notThere);
  expectFailure([&] { there.pressThenDrag(0s, nowhere); }, "pressThenDrag of " + describe(nowhere) + notThere);
}

TEST_F(SimulatedDriverTest, TheKeyboardIsPartOfTheApplication) {
  start();
  EXPECT_FALSE(APP.descendants(ElementType::keyboard).firstMatch().exists());
  named("field").tap();
  EXPECT_TRUE(APP.descendants(ElementType::keyboard).firstMatch().exists());
  const XCUIElement key = APP.descendants(ElementType::key)["b"];
  EXPECT_TRUE(key.isHittable());
  key.tap();
  APP.descendants(ElementType::key)["a"].tap();
  EXPECT_EQ(named("field").value(), ElementValue("ba"));
  APP.buttons()["Return"].tap();
  EXPECT_FALSE(APP.descendants(ElementType::keyboard).firstMatch().exists());
}

TEST_F(SimulatedDriverTest, WhatTheKeyboardCoversIsNotHittable) {
  start(R"(<TextField name="field" x="0" y="0" width="100" height="50"/>)"
        R"(<TextField name="covered" x="0" y="150" width="100" height="50"/>)");
  named("covered").tap();
  EXPECT_FALSE(named("covered").isHittable());
  EXPECT_TRUE(named("field").isHittable());
  named("covered").typeText("typed\n");
  EXPECT_EQ(named("covered").value(), ElementValue("typed"));
  EXPECT_TRUE(named("covered").isHittable());
}

TEST_F(SimulatedDriverTest, TypingThatLosesItsFieldMidwayIsNoError) {
  start();
  named("field").tap();
  APP.typeText("a\nb");
  EXPECT_EQ(named("field").value(), ElementValue("a"));
  EXPECT_THROW(APP.typeText("c"), UIAutomationError);
}

TEST_F(SimulatedDriverTest, APatternOfARuleThatBacktracksForEverFailsTheTap) {
  start("<Button label='" + std::string(40, 'a') + "' x='0' y='0' width='50' height='50'/>",
        R"([{"on": "tap", "element": "label MATCHES '(a+)+b'", "do": []}])");
  expectFailure([] { APP.buttons().firstMatch().tap(); },
                R"(tap of the element (first) of the Button descendants of the application "com.example.test" on the )"
                R"(simulated phone: the regular expression "(a+)+b" was given up: it takes too long on this text)");
}

TEST_F(SimulatedDriverTest, APatternOfARuleThatBacktracksForEverFailsTypingItsReturnKey) {
  start(
      "<TextField name='field' x='0' y='0' width='50' height='50'/>"
      "<Keyboard x='0' y='100' width='100' height='100'><Button name='Return' label='" +
          std::string(40, 'a') + "'/></Keyboard>",
      R"([{"on": "tap", "element": "identifier == 'Return' AND label MATCHES '(a+)+b'", "do": []}])");
  named("field").tap();
  expectFailure([] { APP.typeText("a\n"); },
                R"(typeText of the application "com.example.test" on the simulated phone: the regular expression )"
                R"("(a+)+b" was given up: it takes too long on this text)");
}

// What time brings.

/// The page after 100 ms.
constexpr const char* LATE_PAGE =
    R"(<Window><TextField name="late" label="Late" value="in time" x="0" y="0" width="50" height="20"/>
  <Button name="button" label="Late" x="0" y="20" width="50" height="20"/></Window>)";

/// A phone on which time has passed that nobody has asked about yet.
class TimeTest : public SimulatedDriverTest {
 protected:
  /// `rules` apply besides the one that shows `LATE_PAGE`.
  void startAndWait(const std::string& rules = "", std::chrono::milliseconds time = 100ms) {
    quobrak::testing::MemoryPhoneFiles files =
        quobrak::testing::smallPhone(PAGE, R"([{"on": "time", "after": 100, "do": [{"show": "late"}]})" + rules + "]");
    files["test/late.xml"] = LATE_PAGE;
    platform_.emplace(files);
    APP.launch();
    started_ = platform_->elapsed();
    pass(time);
  }

  static void pass(std::chrono::milliseconds time) {
    Clock::shared().usleep(static_cast<std::uint32_t>(std::chrono::microseconds(time).count()));
  }

  /// As it is, before anyone lets time pass.
  std::string shownScreen() const { return platform_->phone().running("com.example.test")->screenName; }
};

TEST_F(TimeTest, HappensBeforeEachQuestion) {
  const XCUIElement late = named("late");
  const std::function<void()> QUESTIONS[] = {
      [&] { EXPECT_EQ(APP.descendants(ElementType::textField).matchingIdentifier("late").count(), 1); },
      [&] { EXPECT_TRUE(late.exists()); },
      [&] { EXPECT_EQ(late.label(), "Late"); },
      [&] { EXPECT_EQ(late.identifier(), "late"); },
      [&] { EXPECT_EQ(late.value(), ElementValue("in time")); },
      [&] {
        EXPECT_EQ(late.frame(), (Rect{{0, 0}, {50, 20}}));
      },
      [&] { EXPECT_TRUE(late.isHittable()); },
      [&] { EXPECT_THAT(late.debugDescription(), StartsWith("Attributes: TextField, ")); },
      [&] { EXPECT_EQ(driver().waitForExistence(late, 0s), XCTWaiterResult::completed); },
      [&] {
        EXPECT_EQ(driver().waitForPredicate(late, NSPredicate("exists == TRUE"), 0s), XCTWaiterResult::completed);
      },
  };
  for (const auto& question : QUESTIONS) {
    startAndWait();
    ASSERT_EQ(shownScreen(), "start") << "nobody has asked";
    question();
    EXPECT_EQ(elapsed(), 100ms);
  }
}

TEST_F(TimeTest, HappensBeforeEachAction) {
  const XCUIElement late = named("late");
  const std::function<void()> ACTIONS[] = {
      [&] { late.tap(); },
      [&] { late.press(1ms); },
      [&] { late.swipe(SwipeDirection::up); },
      [&] {
        late.coordinate({0.5, 0.5}).tap();
      },
      [&] {
        late.coordinate({0.5, 0.5}).press(1ms);
      },
      [&] {
        late.coordinate({0.5, 0.5}).pressThenDrag(0s, late.coordinate({0.5, 0.9}));
      },
      [&] { driver().terminate("com.example.none"); },
      [&] { XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::volumeUp); },
      [&] { EXPECT_TRUE(XCUIScreen::mainScreen().pngScreenshot()); },
      [&] { EXPECT_THROW(OTHER.launch(), UIAutomationError); },
      [&] { EXPECT_THROW(late.typeText("a"), UIAutomationError) << "it is there, without the focus"; },
  };
  for (const auto& action : ACTIONS) {
    startAndWait();
    ASSERT_EQ(shownScreen(), "start") << "nobody has acted";
    EXPECT_NO_THROW(action());
    EXPECT_EQ(shownScreen(), "late");
  }
}

TEST_F(TimeTest, IsSeenInAPicture) {
  startAndWait("", 99ms);
  const std::optional<Data> before = XCUIScreen::mainScreen().pngScreenshot();
  pass(1ms);
  EXPECT_NE(XCUIScreen::mainScreen().pngScreenshot(), before);
}

TEST_F(TimeTest, GoesOnWhileAWaitLooksAgainAndAgain) {
  startAndWait("", 0ms);
  EXPECT_EQ(driver().waitForExistence(named("late"), 99ms), XCTWaiterResult::timedOut);
  EXPECT_EQ(driver().waitForExistence(named("late"), 1s), XCTWaiterResult::completed);
  EXPECT_EQ(elapsed(), 149ms) << "fifty more, as often as a wait looks";
  startAndWait("", 30ms);
  EXPECT_EQ(driver().waitForPredicate(named("late"), NSPredicate("value == 'in time'"), 1s),
            XCTWaiterResult::completed);
  EXPECT_EQ(elapsed(), 130ms);
  EXPECT_EQ(driver().waitForPredicate(named("ok"), NSPredicate("exists == FALSE"), 1s), XCTWaiterResult::completed);
}

// Rules without end.

constexpr const char* ENDLESS = "the rules of \"com.example.test\" set each other off without end";

TEST_F(TimeTest, RulesOfTimeWithoutEndFailEveryOperation) {
  const XCUIElement ok = named("ok");
  const XCUICoordinate point = ok.coordinate({0.5, 0.5});
  const std::string okText =
      R"(the element (single) of the descendants, keyed "ok" of the application "com.example.test")";
  const std::string pointText = "the point (0.5, 0.5) of " + okText;
  struct Row {
    std::string operation;
    std::function<void()> carryOut;
  };
  const Row ROWS[] = {
      {"launch of the application \"com.example.test\"", [] { APP.launch(); }},
      {"terminate of the application \"com.example.test\"", [] { APP.terminate(); }},
      {"count of the Button descendants of the application \"com.example.test\"", [] { APP.buttons().count(); }},
      {"exists of " + okText, [&] { ok.exists(); }},
      {"label of " + okText, [&] { ok.label(); }},
      {"identifier of " + okText, [&] { ok.identifier(); }},
      {"value of " + okText, [&] { ok.value(); }},
      {"frame of " + okText, [&] { ok.frame(); }},
      {"isHittable of " + okText, [&] { ok.isHittable(); }},
      {"debugDescription of " + okText, [&] { ok.debugDescription(); }},
      {"waitForExistence of " + okText, [&] { ok.waitForExistence(1s); }},
      {"waitForPredicate of " + okText, [&] { driver().waitForPredicate(ok, NSPredicate("enabled == TRUE"), 1s); }},
      {"tap of " + okText, [&] { ok.tap(); }},
      {"press of " + okText, [&] { ok.press(1s); }},
      {"typeText of " + okText, [&] { ok.typeText("a"); }},
      {"swipe of " + okText, [&] { ok.swipe(SwipeDirection::up); }},
      {"tap of " + pointText, [&] { point.tap(); }},
      {"press of " + pointText, [&] { point.press(1s); }},
      {"pressThenDrag of " + pointText, [&] { point.pressThenDrag(1s, point); }},
      {"pressButton of a button", [] { XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::home); }},
      {"screenshot of the phone \"Small phone\"", [] { XCUIScreen::mainScreen().pngScreenshot(); }},
  };
  for (const auto& [operation, carryOut] : ROWS) {
    startAndWait(R"(, {"on": "time", "screen": "late", "after": 0, "do": [{"show": "late"}]})");
    expectFailure(carryOut, operation + " on the simulated phone: " + ENDLESS);
  }
}

TEST_F(TimeTest, RulesWithoutEndThatBeginDuringAWaitFailIt) {
  const std::string rule = R"(, {"on": "time", "screen": "late", "after": 0, "do": [{"show": "late"}]})";
  const std::string reason = " of " + describe(named("nobody")) + " on the simulated phone: " + ENDLESS;
  startAndWait(rule, 0ms);
  expectFailure([] { named("nobody").waitForExistence(1s); }, "waitForExistence" + reason);
  startAndWait(rule, 0ms);
  expectFailure([this] { driver().waitForPredicate(named("nobody"), NSPredicate("exists == TRUE"), 1s); },
                "waitForPredicate" + reason);
}

TEST_F(TimeTest, RulesWithoutEndThatAnActionSetsOffFailIt) {
  constexpr const char* LIST_AND_FIELD = R"(<Table name="list" x="0" y="0" width="100" height="50">
      <Cell name="row" x="0" y="0" width="100" height="400"/></Table>
      <TextField name="field" x="0" y="60" width="100" height="20"/>
      <Button name="button" x="0" y="90" width="100" height="20"/>)";
  const auto start = [this](const std::string& event) {
    quobrak::testing::MemoryPhoneFiles files = quobrak::testing::smallPhone(LIST_AND_FIELD, R"([{)" + event + R"(,
        "do": [{"show": "one"}]},
      {"on": "screen", "screen": "one", "do": [{"show": "two"}]}, {"on": "screen", "screen": "two", "do": [{"show": "one"}]}])");
    files["test/one.xml"] = "<Window/>";
    files["test/two.xml"] = "<Window/>";
    platform_.emplace(files);
  };
  const std::string reason = std::string(" on the simulated phone: ") + ENDLESS;
  const auto fails = [&](const std::string& event, const std::string& operation, const std::function<void()>& action) {
    start(event);
    APP.launch();
    expectFailure(action, operation + reason);
  };
  start(R"("on": "launch")");
  expectFailure([] { APP.launch(); }, "launch of the application \"com.example.test\"" + reason);

  const std::string tap = R"("on": "tap", "element": "identifier == 'button'")";
  const XCUIElement button = named("button");
  const XCUICoordinate point = button.coordinate({0.5, 0.5});
  fails(tap, "tap of " + describe(button), [&] { button.tap(); });
  fails(tap, "press of " + describe(button), [&] { button.press(1s); });
  fails(tap, "tap of " + describe(point), [&] { point.tap(); });
  fails(tap, "press of " + describe(point), [&] { point.press(1s); });

  const std::string scroll = R"("on": "scroll", "element": "identifier == 'list'")";
  const XCUICoordinate row = named("list").coordinate({0.5, 0.5});
  fails(scroll, "swipe of " + describe(named("list")), [] { named("list").swipe(SwipeDirection::up); });
  fails(scroll, "pressThenDrag of " + describe(row), [&] {
    row.pressThenDrag(0s, named("list").coordinate({0.5, 0.1}));
  });

  fails(R"("on": "text", "element": "identifier == 'field'")", "typeText of the application \"com.example.test\"", [] {
    named("field").tap();
    APP.typeText("a");
  });
}

// Searches while the screen changes.

/// A clock that lets someone look whenever time passes.
class WatchedClock final : public Clock {
 public:
  void watch(std::function<void()> look) { look_ = std::move(look); }

  Seconds timeIntervalSince1970() const override { return clock_.timeIntervalSince1970(); }
  TimePoint now() const override { return clock_.now(); }
  void usleep(std::uint32_t microseconds) override {
    clock_.usleep(microseconds);
    look_();
  }

 private:
  VirtualClock clock_;
  std::function<void()> look_ = [] {};
};

constexpr const char* CHANGING_PAGE = R"(
  <TextField label="field" x="0" y="0" width="50" height="20"/>
  <SecureTextField label="secure" x="50" y="0" width="50" height="20"/>
  <Switch label="switch" value="0" x="0" y="20" width="50" height="20"/>
  <Button label="other" x="50" y="20" width="50" height="20"/>
  <Button label="ask" x="0" y="40" width="50" height="20"/>
  <Button label="ask and open" x="50" y="40" width="50" height="20"/>
  <Button label="show and open" x="0" y="60" width="50" height="20"/>
  <Table x="0" y="80" width="100" height="40">
    <Cell x="0" y="80" width="100" height="400"/>
    <Other label="Vertical scroll bar, 2 pages" value="0%" x="90" y="80" width="10" height="40"/>
  </Table>)";

constexpr const char* CHANGING_RULES = R"([
  {"on": "tap", "element": "label == 'other'", "do": [{"show": "start"}]},
  {"on": "tap", "element": "label == 'ask'", "do": [{"systemAlert": {"title": "One", "message": "?", "buttons": ["OK"]}}]},
  {"on": "tap", "element": "label == 'ask and open'", "do": [
    {"systemAlert": {"title": "Two", "message": "?", "buttons": ["OK"]}}, {"open": "com.example.other"}]},
  {"on": "tap", "element": "label == 'show and open'", "do": [{"show": "start"}, {"open": "com.example.other"}]}])";

PhoneDescription changingPhone() {
  quobrak::testing::MemoryPhoneFiles files = quobrak::testing::smallPhone(CHANGING_PAGE, CHANGING_RULES);
  files["phone.json"] = R"({"name": "Small phone", "size": {"width": 100, "height": 200}, "scale": 1,
    "systemVersion": "17.5", "volume": 50, "delays": {"touch": 10, "button": 10, "scroll": 10},
    "home": "com.apple.springboard", "applications": ["home", "test", "other"]})";
  files["other/app.json"] = R"({"bundleIdentifier": "com.example.other", "name": "Other", "launchTime": 100,
    "firstScreen": "start"})";
  files["other/start.xml"] = *files.read("test/start.xml");
  return loadPhone(files);
}

class ChangingPhoneTest : public ::testing::Test {
 protected:
  ChangingPhoneTest() {
    clock_.watch([this] { look(); });
    driver_.launch("com.example.test");
  }

  /// All searches of one application see its tree as it is. It is the same one in a row of looks, because only the tree
  /// that was searched last is kept.
  void look() {
    constexpr int LOOKS_IN_A_ROW = 8;
    const std::array applications{APP, HOME, OTHER};
    const XCUIApplication& application =
        applications[static_cast<std::size_t>(looks_++ / LOOKS_IN_A_ROW) % applications.size()];
    const auto& root = std::get<ApplicationRoot>(application.query().root());
    const RunningApplication* const running = driver_.phone().running(root.bundleIdentifier);
    for (const XCUIElementQuery& query : queriesOn(application)) {
      const auto expected =
          running == nullptr ? std::vector<const Element*>() : unkept_.elements(query, *running->screen);
      ASSERT_EQ(driver_.count(query), expected.size());
      for (std::size_t index = 0; index < expected.size(); ++index) {
        ASSERT_EQ(driver_.label(query.elementBoundBy(index)), expected[index]->label);
      }
    }
  }

  static std::vector<XCUIElementQuery> queriesOn(const XCUIApplication& application) {
    std::vector<XCUIElementQuery> queries{application.descendants(ElementType::any), application.buttons()};
    for (const std::string_view format :
         {"label CONTAINS[c] 'O'", "value CONTAINS[c] 'A'", "value CONTAINS '%'", "value == '1'", "value MATCHES '•+'",
          "NOT value == '0%'", "enabled == FALSE", "selected == TRUE"}) {
      queries.push_back(queries.front().matching(NSPredicate(format)));
    }
    return queries;
  }

  WatchedClock clock_;
  SimulatedDriver driver_{changingPhone(), clock_};
  const QueryEvaluator unkept_{[](const Element&) { return false; }};
  int looks_ = 0;
};

TEST_F(ChangingPhoneTest, SearchesSeeEveryChangeAtOnce) {
  std::mt19937 chance{1};
  const auto below = [&chance](unsigned end) { return static_cast<double>(chance() % end); };
  for (int step = 0; step < 1000; ++step) {
    Phone& phone = driver_.phone();
    if (phone.alert() != nullptr && chance() % 2 == 0) {
      driver_.tap(HOME.buttons()["OK"]);
    }
    const Point point{below(100), below(200)};
    switch (chance() % 8) {
      case 0:
        phone.drag(point, Seconds::zero(), {below(100), below(200)});
        break;
      case 1:
        phone.swipe(*phone.layers().front(), step % 2 == 0 ? SwipeDirection::up : SwipeDirection::down);
        break;
      case 2:
        phone.type(*phone.layers().front(), step % 3 == 0 ? "\b" : step % 3 == 1 ? "aA" : "\n");
        break;
      case 3:
        if (step % 4 == 0) {
          phone.launch("com.example.test");
        } else if (step % 4 == 1) {
          phone.pressHome();
        } else if (step % 4 == 2) {
          phone.terminate("com.example.other");
        } else {
          phone.activate("com.example.test");
        }
        break;
      default:
        phone.touch(point, Seconds::zero());
    }
    ASSERT_NO_FATAL_FAILURE(look()) << "after step " << step;
  }
  EXPECT_GT(looks_, 1500) << "hardly any time passed";
}

TEST_F(ChangingPhoneTest, SearchesSeeWhatIsScrolledAndRaisedWhileTimePasses) {
  bool wasScrollSeen = false;
  const XCUIElementQuery scrolled =
      APP.descendants(ElementType::any).matching(NSPredicate("value CONTAINS '%' AND NOT value == '0%'"));
  clock_.watch([&] { wasScrollSeen = wasScrollSeen || driver_.count(scrolled) == 1; });
  EXPECT_EQ(driver_.count(scrolled), 0);
  driver_.phone().drag({50, 115}, Seconds::zero(), {50, 15});
  EXPECT_TRUE(wasScrollSeen) << "before the list has come to rest";

  bool wasAlertSeen = false;
  const XCUIElementQuery alerts = HOME.descendants(ElementType::alert);
  EXPECT_EQ(driver_.count(alerts), 0);
  clock_.watch([&] { wasAlertSeen = wasAlertSeen || driver_.count(alerts) == 1; });
  driver_.phone().touch({75, 50}, Seconds::zero());
  EXPECT_TRUE(wasAlertSeen) << "while the other application starts";
}

// The device.

TEST_F(SimulatedDriverTest, Buttons) {
  start();
  XCUIDevice& device = XCUIDevice::sharedDevice();
  device.pressButton(XCUIDeviceButton::home);
  EXPECT_TRUE(platform_->phone().isInFront("com.apple.springboard"));
  device.pressButton(XCUIDeviceButton::volumeUp);
  EXPECT_EQ(platform_->phone().volume(), 56.25);
  for (int press = 0; press < 20; ++press) {
    device.pressButton(XCUIDeviceButton::volumeUp);
  }
  EXPECT_EQ(platform_->phone().volume(), 100);
  for (int press = 0; press < 20; ++press) {
    device.pressButton(XCUIDeviceButton::volumeDown);
  }
  EXPECT_EQ(platform_->phone().volume(), 0);
}

TEST_F(SimulatedDriverTest, TheScreenshotChangesWithTheScreenAlone) {
  start();
  const std::optional<Data> picture = XCUIScreen::mainScreen().pngScreenshot();
  ASSERT_TRUE(picture);
  EXPECT_THAT(std::string(textOf(*picture)), StartsWith("\x89PNG\r\n\x1A\n"));
  EXPECT_EQ(XCUIScreen::mainScreen().pngScreenshot(), picture);
  named("switch").tap();
  EXPECT_NE(XCUIScreen::mainScreen().pngScreenshot(), picture);
  named("switch").tap();
  EXPECT_EQ(XCUIScreen::mainScreen().pngScreenshot(), picture);
}

TEST_F(SimulatedDriverTest, DescribesWhatIsThere) {
  start(R"(<Button label="OK" x="0" y="0" width="50" height="50"/>)");
  EXPECT_EQ(APP.debugDescription(), R"(Attributes: Application, 0x100000000, pid: 102, label: 'Test'
Element subtree:
 →Application, 0x100000000, pid: 102, label: 'Test'
    Window (Main), 0x100000040, {{0.0, 0.0}, {100.0, 200.0}}
      Button, 0x100000080, {{0.0, 0.0}, {50.0, 50.0}}, label: 'OK'
Path to element:
 →Application, 0x100000000, pid: 102, label: 'Test'
Query chain:
 →Find: Application 'com.example.test'
  Output: {
    Application, 0x100000000, pid: 102, label: 'Test'
  }

)");
  EXPECT_THAT(HOME.debugDescription(), StartsWith("Attributes: Application, 0x100000000, pid: 101, label: ' '\n"));
  EXPECT_EQ(
      APP.staticTexts().firstMatch().debugDescription(),
      "Query chain:\n →Find: Application 'com.example.test'\n  ↪︎Find: Descendants matching type StaticText\n"
      "    ↪︎Find: Element at index 0\n");
}

// Interruptions.

constexpr const char* SWITCH = R"(<Switch name="switch" value="0" x="0" y="0" width="100" height="200"/>)";
constexpr const char* ASKING = R"([{"on": "launch", "do": [
    {"systemAlert": {"title": "first", "buttons": ["No", "Yes"]}, "answer": "first"},
    {"systemAlert": {"title": "second", "buttons": ["OK"]}}]}])";

/// The switch with two alerts in front of it, and handlers that write down what they are asked.
class InterruptionTest : public SimulatedDriverTest {
 protected:
  InterruptionTest() { start(SWITCH, ASKING); }

  InterruptionMonitorToken add(const std::string& name, InterruptionHandler handler) {
    return driver().addInterruptionMonitor(name, [this, name, handler = std::move(handler)](const XCUIElement& alert) {
      asked_.push_back(name + ": " + alert.label());
      return handler(alert);
    });
  }

  std::string alertThatIsUp() const {
    const SystemAlert* const alert = platform_->phone().alert();
    return alert == nullptr ? "none" : alert->alert().label;
  }

  bool isOn() { return named("switch").value() == ElementValue("1"); }

  std::vector<std::string> asked_;
};

TEST_F(InterruptionTest, WhatAHandlerRaisesPassesAndTheNextActionAsksAgain) {
  add("throwing", [](const XCUIElement&) -> bool { throw std::runtime_error("no idea"); });
  EXPECT_THAT([] { named("switch").tap(); }, ThrowsMessage<std::runtime_error>("no idea"));
  EXPECT_THAT([] { named("switch").tap(); }, ThrowsMessage<std::runtime_error>("no idea"));
  EXPECT_THAT(asked_, ElementsAre("throwing: second", "throwing: second"));
  EXPECT_FALSE(isOn());
}

TEST_F(InterruptionTest, AHandlerSeesTheAlertAndAllThatIsInIt) {
  std::vector<std::string> words;
  std::optional<XCUIElement> kept;
  const InterruptionMonitorToken token = add("looking", [&](const XCUIElement& alert) {
    words.push_back(describe(alert));
    words.push_back(alert.staticTexts().firstMatch().label());
    words.push_back(alert.buttons().firstMatch().label());
    EXPECT_TRUE(alert.exists());
    EXPECT_TRUE(alert.isHittable());
    EXPECT_TRUE(alert.buttons()["OK"].isHittable());
    EXPECT_THAT(alert.debugDescription(), StartsWith("Attributes: Alert, "));
    kept = alert;
    return false;
  });
  named("switch").tap();
  driver().removeInterruptionMonitor(token);
  EXPECT_THAT(words, ElementsAre("the system alert \"second\"", "second", "OK"));
  ASSERT_TRUE(kept);
  EXPECT_TRUE(kept->exists());
  kept->buttons()["OK"].coordinate({0.5, 0.5}).tap();
  EXPECT_EQ(alertThatIsUp(), "first");
  EXPECT_FALSE(kept->exists()) << "it was the alert that is gone";
  EXPECT_EQ(kept->debugDescription(), "Query chain:\n →Find: the system alert \"second\"\n");
  expectFailure([&] { kept->tap(); }, R"(tap of the system alert "second" on the simulated phone: it does not exist)");
}

}  // namespace
}  // namespace quobrak::simulator
