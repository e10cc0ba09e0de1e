#include "platform/uiautomation/XCUIDevice.h"
#include "platform/uiautomation/XCUIScreen.h"
#include "tests/conformance/ConformanceTest.h"

namespace quobrak::conformance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

constexpr const char* PAGE = R"(<Switch name="switch" value="0" x="0" y="0" width="100" height="200"/>)";
constexpr const char* ASKING = R"([{"on": "launch", "do": [
    {"systemAlert": {"title": "first", "buttons": ["No", "Yes"]}, "answer": "first"},
    {"systemAlert": {"title": "second", "buttons": ["OK"]}}]}])";

/// A switch with two alerts of the system process in front of it, and handlers that write down what they are asked.
class Interruptions : public ConformanceTest {
 protected:
  Interruptions() { start(PAGE, ASKING); }

  InterruptionMonitorToken add(const std::string& name, InterruptionHandler handler) {
    return driver().addInterruptionMonitor(name, [this, name, handler = std::move(handler)](const XCUIElement& alert) {
      asked_.push_back(name + ": " + alert.label());
      return handler(alert);
    });
  }

  static bool press(const XCUIElement& alert) {
    alert.buttons().firstMatch().tap();
    return true;
  }
  static bool refuse(const XCUIElement&) { return false; }
  static bool claim(const XCUIElement&) { return true; }

  std::string alertThatIsUp() {
    const simulator::SystemAlert* const alert = phone().alert();
    return alert == nullptr ? "none" : alert->alert().label;
  }

  bool isOn() { return named("switch").value() == ElementValue("1"); }

  std::vector<std::string> asked_;
};

TEST_F(Interruptions, StackedAlertsAreDealtWithOneAfterTheOtherAndThenTheActionIsCarriedOut) {
  add("presser", press);
  named("switch").tap();
  EXPECT_THAT(asked_, ElementsAre("presser: second", "presser: first"));
  EXPECT_EQ(alertThatIsUp(), "none");
  EXPECT_TRUE(isOn());
  EXPECT_THAT(touched, ElementsAre("OK", "No", "switch"));
}

TEST_F(Interruptions, HandlersAreAskedInReverseOrderUntilOneAnswersTrue) {
  add("never asked", press);
  add("presser", press);
  add("refuser", refuse);
  named("switch").tap();
  EXPECT_THAT(asked_, ElementsAre("refuser: second", "presser: second", "refuser: first", "presser: first"));
  EXPECT_TRUE(isOn());
}

TEST_F(Interruptions, WhereNoHandlerAnswersTrueTheTouchLandsOnTheAlert) {
  add("refuser", refuse);
  named("switch").tap();
  EXPECT_THAT(asked_, ElementsAre("refuser: second"));
  EXPECT_EQ(alertThatIsUp(), "second");
  EXPECT_FALSE(isOn());
  named("switch").coordinate({0.5, 0.75}).tap();
  EXPECT_EQ(alertThatIsUp(), "first") << "the touch landed on the alert's button";
  EXPECT_FALSE(isOn());
}

TEST_F(Interruptions, WithoutAHandlerTheTouchLandsOnTheAlert) {
  named("switch").tap();
  EXPECT_EQ(alertThatIsUp(), "second");
  EXPECT_FALSE(isOn());
}

TEST_F(Interruptions, EveryActingPrimitiveAsks) {
  add("refuser", refuse);
  const XCUIElement element = named("switch");
  element.tap();
  element.press(1s);
  element.swipe(SwipeDirection::up);
  element.coordinate({0, 0}).tap();
  element.coordinate({0, 0}).press(1s);
  element.coordinate({0, 0}).pressThenDrag(0s, element.coordinate({0.1, 0.1}));
  EXPECT_THROW(element.typeText("a"), UIAutomationError);
  EXPECT_EQ(asked_, std::vector<std::string>(7, "refuser: second"));
}

TEST_F(Interruptions, AnActionMadeInsideAHandlerAsksNobody) {
  add("bystander", refuse);
  add("acting", [](const XCUIElement& alert) {
    named("switch").tap();
    alert.buttons().firstMatch().tap();
    return true;
  });
  named("switch").tap();
  EXPECT_THAT(asked_, ElementsAre("acting: second", "acting: first"));
  EXPECT_TRUE(isOn()) << "the handler's own taps landed on the alerts";
}

TEST_F(Interruptions, WhatActsOnTheAlertItselfIsNotInterruptedByIt) {
  add("presser", press);
  HOME.buttons()["OK"].tap();
  EXPECT_EQ(alertThatIsUp(), "first");
  HOME.buttons()["Yes"].press(1s);
  EXPECT_EQ(alertThatIsUp(), "none");
  EXPECT_THAT(asked_, IsEmpty());
  EXPECT_THAT(touched, ElementsAre("OK", "Yes"));
}

TEST_F(Interruptions, QuestionsWaitsAndTheDeviceAskNobody) {
  add("presser", press);
  const XCUIElement element = named("switch");
  EXPECT_TRUE(element.exists());
  EXPECT_EQ(element.label(), "");
  EXPECT_EQ(element.identifier(), "switch");
  EXPECT_EQ(element.value(), ElementValue("0"));
  EXPECT_EQ(element.frame(), (Rect{{0, 0}, {100, 200}}));
  EXPECT_EQ(APP.buttons().count(), 0);
  EXPECT_FALSE(element.debugDescription().empty());
  EXPECT_TRUE(element.waitForExistence(1s));
  EXPECT_EQ(driver().waitForPredicate(element, NSPredicate("enabled == FALSE"), 1s), XCTWaiterResult::timedOut);
  EXPECT_TRUE(XCUIScreen::mainScreen().pngScreenshot());
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::volumeUp);
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::home);
  EXPECT_THAT(asked_, IsEmpty());
  EXPECT_EQ(alertThatIsUp(), "second");
}

TEST_F(Interruptions, AnAlertDoesNotMakeAnElementUnhittable) {
  EXPECT_TRUE(named("switch").isHittable());
  EXPECT_EQ(APP.descendants(ElementType::any).matching(NSPredicate("hittable == TRUE")).count(), 2);
}

TEST_F(Interruptions, AHandlerThatLeavesTheAlertStandingIsAskedOncePerAction) {
  add("claimer", claim);
  named("switch").tap();
  EXPECT_THAT(asked_, ElementsAre("claimer: second"));
  named("switch").tap();
  EXPECT_THAT(asked_, ElementsAre("claimer: second", "claimer: second"));
  EXPECT_FALSE(isOn());
}

TEST_F(Interruptions, ARemovedHandlerIsNotAsked) {
  const InterruptionMonitorToken token = add("removed", press);
  driver().removeInterruptionMonitor(token);
  driver().removeInterruptionMonitor(token);
  named("switch").tap();
  EXPECT_THAT(asked_, IsEmpty());
  EXPECT_EQ(alertThatIsUp(), "second");
}

TEST_F(Interruptions, WithoutAnAlertNoHandlerIsAsked) {
  add("presser", press);
  named("switch").tap();
  asked_.clear();
  named("switch").tap();
  EXPECT_THAT(asked_, IsEmpty());
  EXPECT_FALSE(isOn());
}

TEST_F(Interruptions, AHandlerSeesTheAlertAndAllThatIsInIt) {
  std::vector<std::string> words;
  const InterruptionMonitorToken token = add("looking", [&](const XCUIElement& alert) {
    words.push_back(alert.staticTexts().firstMatch().label());
    words.push_back(alert.buttons().firstMatch().label());
    EXPECT_TRUE(alert.exists());
    EXPECT_TRUE(alert.buttons()["OK"].exists());
    EXPECT_TRUE(alert.buttons()["OK"].isHittable());
    EXPECT_FALSE(alert.buttons()["Yes"].exists()) << "that is the other alert's";
    EXPECT_EQ(alert.staticTexts().matching(NSPredicate("label CONTAINS[c] 'SECOND'")).count(), 1);
    alert.buttons()["OK"].coordinate({0.5, 0.5}).tap();
    EXPECT_FALSE(alert.exists()) << "it was the alert that is gone";
    EXPECT_THROW(alert.tap(), UIAutomationError);
    return false;
  });
  named("switch").tap();
  driver().removeInterruptionMonitor(token);
  EXPECT_THAT(words, ElementsAre("second", "OK"));
  EXPECT_EQ(alertThatIsUp(), "first");
}

TEST_F(Interruptions, TheAlertsAreElementsOfTheHomeApplication) {
  EXPECT_EQ(HOME.descendants(ElementType::alert).count(), 2);
  EXPECT_TRUE(HOME.buttons()["OK"].exists());
  EXPECT_TRUE(HOME.buttons()["OK"].isHittable());
  EXPECT_FALSE(HOME.buttons()["Yes"].isHittable()) << "another alert is in front of it";
  HOME.buttons()["OK"].tap();
  EXPECT_EQ(alertThatIsUp(), "first");
  HOME.buttons()["Yes"].tap();
  EXPECT_EQ(alertThatIsUp(), "none");
}

TEST_F(Interruptions, AnElementHandedOverByAnotherDriverDoesNotExist) {
  class ForeignHandle final : public ElementHandle {
   public:
    std::string description() const override { return "a foreign element"; }
  };
  const XCUIElement foreign{QueryRoot(std::make_shared<const ForeignHandle>())};
  EXPECT_FALSE(foreign.exists());
  EXPECT_EQ(foreign.buttons().count(), 0);
}

}  // namespace
}  // namespace quobrak::conformance
