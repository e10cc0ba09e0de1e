#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/foundation/VirtualClock.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "platform/uiautomation/XCUICoordinate.h"
#include "platform/uiautomation/XCUIDevice.h"
#include "platform/uiautomation/XCUIScreen.h"
#include "tests/drivers/xctest/standins/StandIns.h"
#include "tests/support/MemoryPhoneFiles.h"

// What all drivers promise is tried in tests/conformance; here is what this driver does with the framework.

namespace quobrak::xctest {
namespace {

using namespace std::chrono_literals;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using testing::inject;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::platformExceptionOf;
using testing::recordedFailures;
using testing::sentSelectors;
using ::testing::ThrowsMessage;

const XCUIApplication APP("com.example.test");
constexpr const char* INTERRUPTION = "_XCTestCaseInterruptionException";

constexpr const char* PAGE = R"(
  <Button name="ok" label="OK" x="0" y="0" width="50" height="50"/>
  <Switch name="switch" label="Night" value="0" x="50" y="0" width="50" height="50"/>
  <TextField name="field" placeholderValue="Name" value="Ada" x="0" y="70" width="50" height="20"/>
  <Button name="outside" label="OK" x="500" y="0" width="50" height="50"/>)";

XCUIElement named(const std::string& identifier) {
  return APP.descendants(ElementType::any)[identifier];
}

class XCTestDriverTest : public ::testing::Test {
 protected:
  explicit XCTestDriverTest(const std::string& rules = "[]") {
    Clock::install(std::make_unique<VirtualClock>());
    phone_.emplace(simulator::loadPhone(testing::smallPhone(PAGE, rules)), Clock::shared());
    phone_->launch("com.example.test");
    UIDriver::install(testing::makeDriverOnStandIns(*phone_));
  }

  ~XCTestDriverTest() override { UIDriver::install(nullptr); }

  UIDriver& driver() { return UIDriver::shared(); }

  /// What `action` sends to the framework.
  template <class Action>
  static std::vector<std::string> sentBy(Action action) {
    const std::size_t before = sentSelectors().size();
    action();
    const std::vector<std::string> all = sentSelectors();
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
  }

  std::optional<simulator::Phone> phone_;
};

TEST_F(XCTestDriverTest, AsksWhetherTheApplicationRunsAndTheElementExistsBeforeItActs) {
  EXPECT_TRUE(APP.exists());
  EXPECT_THAT(sentBy([] { named("ok").tap(); }),
              ElementsAre("XCUIApplication state", "XCUIElement descendantsMatchingType:",
                          "XCUIElementQuery matchingPredicate:", "XCUIElementQuery firstMatch", "XCUIApplication state",
                          "XCUIElement exists", "XCUIElement tap"));
}

TEST_F(XCTestDriverTest, AsksNothingMoreOfAnApplicationThatDoesNotRun) {
  phone_->terminate("com.example.test");
  EXPECT_FALSE(APP.exists());
  EXPECT_THAT(sentBy([] { EXPECT_EQ(APP.buttons().count(), 0); }), ElementsAre("XCUIApplication state"));
  EXPECT_THAT(sentBy([] { EXPECT_EQ(named("ok").label(), ""); }), Each("XCUIApplication state"));
  EXPECT_THAT(recordedFailures(), IsEmpty());
}

TEST_F(XCTestDriverTest, NoQuestionAboutAnAbsentElementRecordsAFailure) {
  const XCUIElement absent = named("nobody");
  EXPECT_FALSE(absent.exists());
  EXPECT_FALSE(absent.isHittable());
  EXPECT_EQ(absent.label(), "");
  EXPECT_EQ(absent.identifier(), "");
  EXPECT_EQ(absent.value(), ElementValue());
  EXPECT_EQ(absent.frame(), Rect());
  EXPECT_FALSE(absent.waitForExistence(1s));
  for (const char* const predicate :
       {"label == '' AND identifier == ''", "value == placeholderValue",
        "NOT (enabled == TRUE OR selected == TRUE OR exists == TRUE OR hittable == TRUE)"}) {
    EXPECT_EQ(driver().waitForPredicate(absent, NSPredicate(predicate), 1s), XCTWaiterResult::completed) << predicate;
  }
  EXPECT_THAT(recordedFailures(), IsEmpty());
}

TEST_F(XCTestDriverTest, WhatIsForeseenNamesTheOperationTheElementAndTheDriver) {
  EXPECT_THAT(
      [] { named("nobody").tap(); },
      ThrowsMessage<UIAutomationError>(R"(tap of the element (single) of the descendants, keyed "nobody" of the )"
                                       R"(application "com.example.test" inside XCTest: it does not exist)"));
  EXPECT_THAT(
      [] {
        named("nobody").coordinate({0.5, 1}).press(1s);
      },
      ThrowsMessage<UIAutomationError>(
          R"(press of the point (0.5, 1) of the element (single) of the descendants, keyed "nobody" of the )"
          R"(application "com.example.test" inside XCTest: it does not exist)"));
  EXPECT_THAT(
      [] { APP.buttons().matching(NSPredicate("label MATCHES '('")).count(); },
      ThrowsMessage<UIAutomationError>(
          R"(count of the Button descendants, matching label MATCHES "(" of the application "com.example.test" )"
          R"(inside XCTest: the regular expression "(" cannot be read)"));
  EXPECT_THAT(recordedFailures(), IsEmpty());
}

TEST_F(XCTestDriverTest, TheFrameworksRefusalToLaunchIsKeptFromBeingRecorded) {
  EXPECT_THAT([] { XCUIApplication("com.example.other").launch(); },
              ThrowsMessage<UIAutomationError>(
                  R"(launch of the application "com.example.other" inside XCTest: failure: Failed to launch )"
                  "com.example.other: it is not installed"));
  EXPECT_THAT(recordedFailures(), IsEmpty());
  inject({.selector = "XCUIElement tap", .name = "", .reason = "later"});
  EXPECT_EQ(platformExceptionOf([] { named("ok").tap(); }), INTERRUPTION);
  EXPECT_THAT(recordedFailures(), ElementsAre("failure: later"));
}

TEST_F(XCTestDriverTest, TypingWithoutTheFocusIsKeptFromBeingRecorded) {
  EXPECT_THAT([] { APP.typeText("a"); },
              ThrowsMessage<UIAutomationError>(
                  R"(typeText of the application "com.example.test" inside XCTest: failure: Neither element nor any )"
                  "descendant has keyboard focus."));
  EXPECT_THAT(recordedFailures(), IsEmpty());
}

// Exceptions of the platform.

TEST_F(XCTestDriverTest, AnExceptionThatTellsOfAFaultBecomesAnErrorOfTheDriver) {
  for (const std::string name : {"NSInvalidArgumentException", "NSUnknownKeyException", "NSRangeException",
                                 "NSInternalInconsistencyException", "NSGenericException"}) {
    inject({.selector = "XCUIElement label", .name = name, .reason = "because of " + name});
    EXPECT_THAT([] { (void)APP.label(); },
                ThrowsMessage<UIAutomationError>(
                    R"(label of the application "com.example.test" inside XCTest: because of )" + name));
  }
}

TEST_F(XCTestDriverTest, EveryOtherExceptionPasses) {
  inject({.selector = "XCUIElement label", .name = "SomeException", .reason = ""});
  EXPECT_EQ(platformExceptionOf([] { (void)APP.label(); }), "SomeException");
}

TEST_F(XCTestDriverTest, WhatEndsTheTestPassesWithAllDestructorsRun) {
  class Noticing {
   public:
    explicit Noticing(bool& isGone) : isGone_(isGone) {}
    ~Noticing() { isGone_ = true; }
    Noticing(const Noticing&) = delete;
    Noticing& operator=(const Noticing&) = delete;

   private:
    bool& isGone_;
  };
  bool isGone = false;
  inject({.selector = "XCUIElement tap", .name = "", .reason = "No matches found"});
  EXPECT_EQ(platformExceptionOf([&isGone] {
              const Noticing noticing(isGone);
              named("ok").tap();
            }),
            INTERRUPTION);
  EXPECT_TRUE(isGone);
  EXPECT_THAT(recordedFailures(), ElementsAre("failure: No matches found"));
}

// Predicates.

TEST_F(XCTestDriverTest, ConditionsThatTheFrameworkKnowsAreLeftToIt) {
  const NSPredicate predicate("label == 'OK' AND enabled == TRUE AND exists == TRUE");
  EXPECT_TRUE(APP.exists());
  EXPECT_THAT(sentBy([&] { EXPECT_EQ(APP.buttons().matching(predicate).count(), 2); }),
              ElementsAre("XCUIApplication state", "XCUIElement descendantsMatchingType:",
                          "XCUIElementQuery matchingPredicate:", "XCUIElementQuery count"));
}

TEST_F(XCTestDriverTest, WhatIsHittableIsAskedElementByElement) {
  const XCUIElementQuery hittable = APP.buttons().matching(NSPredicate("label == 'OK' AND hittable == TRUE"));
  EXPECT_THAT(sentBy([&] { EXPECT_EQ(hittable.count(), 1); }), Not(Contains("XCUIElementQuery matchingPredicate:")));
  EXPECT_EQ(hittable.firstMatch().identifier(), "ok");
  EXPECT_EQ(hittable["ok"].label(), "OK");
  EXPECT_EQ(hittable.matching(NSPredicate("identifier == 'ok'")).count(), 1);
  EXPECT_FALSE(hittable.elementBoundBy(1).exists());
  EXPECT_EQ(hittable.firstMatch().descendants(ElementType::any).count(), 0);
  EXPECT_EQ(hittable.appending(DescendantsStep{ElementType::any}).count(), 0);
}

TEST_F(XCTestDriverTest, DescendantsOfSeveralElementsThatAreHittableCannotBeAskedFor) {
  const auto below = APP.descendants(ElementType::any)
                         .matching(NSPredicate("hittable == TRUE"))
                         .appending(DescendantsStep{ElementType::any});
  EXPECT_THAT([&] { below.count(); },
              ThrowsMessage<UIAutomationError>(
                  "count of the descendants, matching hittable == TRUE, descendants of the application "
                  R"("com.example.test" inside XCTest: a query cannot go on to the descendants of several elements )"
                  "after a condition on hittable"));
}

TEST_F(XCTestDriverTest, APredicateIsAskedOfTheApplicationItselfToo) {
  EXPECT_EQ(XCUIElementQuery(ApplicationRoot{"com.example.test"}).matching(NSPredicate("label == 'Test'")).count(), 1);
  EXPECT_EQ(XCUIElementQuery(ApplicationRoot{"com.example.test"}).matchingIdentifier("Nobody").count(), 0);
  EXPECT_EQ(XCUIElementQuery(ApplicationRoot{"com.example.test"}).count(), 1);
}

TEST_F(XCTestDriverTest, ValuesOfDifferentKindsAreNeverEqualAndTruthValuesContainNothing) {
  for (const char* const format :
       {"label == TRUE", "enabled == 'TRUE'", "value == FALSE", "enabled CONTAINS 'a'", "label CONTAINS TRUE",
        "enabled MATCHES 'a'", "label CONTAINS ''", "'' CONTAINS ''"}) {
    EXPECT_EQ(APP.buttons().matching(NSPredicate(format)).count(), 0) << format;
    EXPECT_EQ(APP.buttons().matching(NSCompoundPredicate::notPredicate(NSPredicate(format))).count(), 2) << format;
  }
  EXPECT_EQ(APP.buttons().matching(NSPredicate("TRUE == TRUE AND label == label AND 'a' == 'a'")).count(), 2);
}

// Waits.

TEST_F(XCTestDriverTest, TheFrameworkWaits) {
  EXPECT_THAT(sentBy([] { EXPECT_FALSE(named("nobody").waitForExistence(1s)); }),
              Contains("XCUIElement waitForExistenceWithTimeout:"));
  const auto sent = sentBy([&] {
    EXPECT_EQ(driver().waitForPredicate(named("ok"), NSPredicate("enabled == FALSE"), 1s), XCTWaiterResult::timedOut);
  });
  EXPECT_THAT(sent, Contains("XCTNSPredicateExpectation initWithPredicate:object:"));
  EXPECT_THAT(sent, Contains("XCTWaiter waitForExpectations:timeout:"));
}

TEST_F(XCTestDriverTest, AWaitForWhatIsThereAsksTheFrameworkForNoWait) {
  EXPECT_THAT(sentBy([] { EXPECT_TRUE(named("ok").waitForExistence(1s)); }),
              Not(Contains("XCUIElement waitForExistenceWithTimeout:")));
}

TEST_F(XCTestDriverTest, WaitsItselfForWhatTheFrameworkCannotFollow) {
  const XCUIElement hittable = APP.buttons().matching(NSPredicate("label == 'Gone' AND hittable == TRUE")).firstMatch();
  const Clock::TimePoint start = Clock::shared().now();
  EXPECT_FALSE(hittable.waitForExistence(1s));
  EXPECT_EQ(Clock::shared().now() - start, 1s);
  phone_->terminate("com.example.test");
  EXPECT_FALSE(named("ok").waitForExistence(1s));
  EXPECT_EQ(driver().waitForPredicate(named("ok"), NSPredicate("exists == TRUE"), 1s), XCTWaiterResult::timedOut);
  EXPECT_EQ(Clock::shared().now() - start, 3s);
  EXPECT_THAT(recordedFailures(), IsEmpty());
}

// Points and the device.

TEST_F(XCTestDriverTest, APointOutsideTheScreenIsNotSentToTheFramework) {
  const Clock::TimePoint start = Clock::shared().now();
  EXPECT_THAT(sentBy([] {
                APP.coordinate({1.5, 0.5}).press(2s);
              }),
              Not(Contains("XCUIElement coordinateWithNormalizedOffset:")));
  EXPECT_EQ(Clock::shared().now() - start, 2s);
}

TEST_F(XCTestDriverTest, ADragThatEndsOutsideTheScreenIsADrag) {
  const auto sent = sentBy([] { named("switch").coordinate({0.5, 0.5}).pressThenDrag(0s, APP.coordinate({5, 5})); });
  EXPECT_THAT(sent, Contains("XCUICoordinate pressForDuration:thenDragToCoordinate:"));
}

TEST_F(XCTestDriverTest, ADragToNowhereIsAPress) {
  constexpr double INFINITE = std::numeric_limits<double>::infinity();
  const auto sent = sentBy([] {
    named("switch").coordinate({0.5, 0.5}).pressThenDrag(0s, APP.coordinate({INFINITE, 5}));
  });
  EXPECT_THAT(sent, Contains("XCUICoordinate pressForDuration:"));
  EXPECT_THAT(sent, Not(Contains("XCUICoordinate pressForDuration:thenDragToCoordinate:")));
}

TEST_F(XCTestDriverTest, APictureThatCannotBeEncodedIsNone) {
  EXPECT_TRUE(XCUIScreen::mainScreen().pngScreenshot());
  testing::giveNoPicture();
  EXPECT_FALSE(XCUIScreen::mainScreen().pngScreenshot());
}

TEST_F(XCTestDriverTest, EachButtonAndDirectionIsTheFrameworksOwn) {
  const auto sent = sentBy([] {
    for (const auto direction :
         {SwipeDirection::up, SwipeDirection::down, SwipeDirection::left, SwipeDirection::right}) {
      APP.swipe(direction);
    }
  });
  EXPECT_THAT(sent, ::testing::IsSupersetOf({"XCUIElement swipeUp", "XCUIElement swipeDown", "XCUIElement swipeLeft",
                                             "XCUIElement swipeRight"}));
  const double volume = phone_->volume();
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::volumeUp);
  EXPECT_GT(phone_->volume(), volume);
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::volumeDown);
  EXPECT_EQ(phone_->volume(), volume);
  XCUIDevice::sharedDevice().pressButton(XCUIDeviceButton::home);
  EXPECT_TRUE(phone_->isInFront("com.apple.springboard"));
}

// Interruptions.

class XCTestDriverTime : public XCTestDriverTest {
 protected:
  XCTestDriverTime()
      : XCTestDriverTest(R"([{"on": "time", "after": 100,
            "do": [{"change": "identifier == 'ok'", "to": {"identifier": "late", "label": "Late"}}]}])") {}
};

TEST_F(XCTestDriverTime, WhatHasComeDueOnThePhoneIsSeenByQuestionsAndWaits) {
  Clock::shared().usleep(99'000);
  EXPECT_FALSE(named("late").exists());
  EXPECT_EQ(driver().waitForExistence(named("late"), 1s), XCTWaiterResult::completed);
  EXPECT_EQ(driver().waitForPredicate(named("ok"), NSPredicate("exists == FALSE"), 0s), XCTWaiterResult::completed);
}

TEST_F(XCTestDriverTime, WhatHasComeDueOnThePhoneIsSeenInAPicture) {
  const std::optional<Data> before = XCUIScreen::mainScreen().pngScreenshot();
  Clock::shared().usleep(100'000);
  EXPECT_NE(XCUIScreen::mainScreen().pngScreenshot(), before);
}

class XCTestDriverInterruptions : public XCTestDriverTest {
 protected:
  XCTestDriverInterruptions()
      : XCTestDriverTest(R"([{"on": "launch", "do": [{"systemAlert": {"title": "Allow?", "buttons": ["OK"]}}]}])") {}
};

TEST_F(XCTestDriverInterruptions, WhatAHandlerRaisesIsRaisedByTheActionThatWasInterrupted) {
  driver().addInterruptionMonitor("never", [](const XCUIElement&) { return true; });
  driver().addInterruptionMonitor("raising", [](const XCUIElement&) -> bool { throw std::out_of_range("no idea"); });
  for (int attempt = 0; attempt < 2; ++attempt) {
    EXPECT_THAT([] { named("switch").tap(); }, ThrowsMessage<std::out_of_range>("no idea"));
  }
  EXPECT_NE(phone_->alert(), nullptr);
  EXPECT_EQ(named("switch").value(), ElementValue("0"));
}

TEST_F(XCTestDriverInterruptions, WhatEndsTheTestInAHandlerPasses) {
  driver().addInterruptionMonitor("tapping", [](const XCUIElement& alert) {
    inject({.selector = "XCUIElement tap", .name = "", .reason = "in the handler"});
    alert.buttons()["OK"].tap();
    return true;
  });
  EXPECT_EQ(platformExceptionOf([] { named("switch").tap(); }), INTERRUPTION);
  EXPECT_THAT(recordedFailures(), ElementsAre("failure: in the handler"));
}

TEST_F(XCTestDriverInterruptions, TheAlertIsDescribedByItsTitle) {
  std::string words;
  driver().addInterruptionMonitor("looking", [&words](const XCUIElement& alert) {
    words = describe(alert.buttons().firstMatch());
    return false;
  });
  named("switch").tap();
  EXPECT_EQ(words, R"(the element (first) of the Button descendants of the alert "Allow?")");
}

TEST_F(XCTestDriverInterruptions, AMonitorThatOutlivesTheDriverAnswersNothing) {
  int asked = 0;
  driver().addInterruptionMonitor("late", [&asked](const XCUIElement&) { return ++asked > 0; });
  UIDriver::install(nullptr);
  testing::tapInTheFramework("com.example.test");
  EXPECT_EQ(asked, 0);
}

}  // namespace
}  // namespace quobrak::xctest
