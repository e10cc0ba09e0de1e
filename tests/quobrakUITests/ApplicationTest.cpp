#include "quobrakUITests/Application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "drivers/simulator/PhoneLoader.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/TestContext.h"
#include "tests/conformance/EventfulClock.h"
#include "tests/quobrakUITests/Flow.h"
#include "tests/quobrakUITests/QueryWords.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/StorePhone.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using std::chrono::milliseconds;
using testing::AnsweringDriver;
using testing::appInWords;
using ::testing::Contains;
using ::testing::ElementsAre;
using testing::filesOf;
using testing::Flow;
using ::testing::Not;
using testing::textQueryInWords;
using ::testing::ThrowsMessage;

TEST(Application, StartLaunchesTheApplicationAndMakesItTheOneThatCommandsActOn) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test"));
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
  EXPECT_TRUE(platform.phone().isInFront("com.example.test"));
}

TEST(Application, StartOfARunningApplicationLaunchesItAgain) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  Application::applicationStart("com.example.test");
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test", "launch: com.example.test"));
}

TEST(Application, StartWithAnEmptyIdentifierSaysThatThereIsNoApplication) {
  testing::TestPlatform platform;
  EXPECT_THAT([] { Application::applicationStart(""); }, testing::raisesNotInitialised());
  EXPECT_THAT(platform.driver().operations, ElementsAre());
}

TEST(Application, StartThatFailsHasChosenTheApplicationAllTheSame) {
  testing::TestPlatform platform;
  EXPECT_THAT([] { Application::applicationStart("com.example.none"); },
              ThrowsMessage<UIAutomationError>("launch of the application \"com.example.none\" on the simulated phone: "
                                               "it is not installed; installed are com.apple.springboard, "
                                               "com.example.test"));
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.none");
}

TEST(Application, KillEndsTheApplicationWhichStaysTheOneThatCommandsActOn) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  Application::applicationKill("com.example.test");
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test", "terminate: com.example.test"));
  EXPECT_EQ(platform.phone().running("com.example.test"), nullptr);
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
}

TEST(Application, CommandAfterAKillFindsNothingOfTheApplication) {
  testing::TestPlatform platform(R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  Application::applicationKill("com.example.test");
  EXPECT_THAT([] { Click::clickByText("Go"); }, testing::raisesFdslError("The expected text Go was not found"));
}

TEST(Application, KillOfAnotherApplicationLeavesTheOneThatCommandsActOn) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  Application::applicationKill("com.example.none");
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
  EXPECT_NE(platform.phone().running("com.example.test"), nullptr);
}

TEST(Application, KillNeedsNoApplicationToHaveBeenStarted) {
  testing::TestPlatform platform;
  Application::applicationKill("com.example.test");
  EXPECT_THAT(platform.driver().operations, ElementsAre("terminate: com.example.test"));
  EXPECT_THAT([] { TestContext::shared().getTestingApp(); }, testing::raisesNotInitialised());
}

// Installing.

constexpr const char* SETTINGS = "com.apple.Preferences";
constexpr const char* BROWSER = "com.apple.mobilesafari";
constexpr const char* APP_STORE = "com.apple.AppStore";
constexpr const char* LINK = "https://apps.example.com/app/id7?l=en";

std::string storeElement(const std::string& predicate) {
  return "the element (single) of the descendants, matching " + predicate + " of " + appInWords(APP_STORE);
}

const std::string SHARE = storeElement(R"(label MATCHES "Share")");
const std::string OPEN_BUTTON = storeElement(R"(label MATCHES "open" OR label MATCHES "OPEN")");
const std::string CONFIRMATION = testing::pointInWords("(0.5, 0.92)", appInWords(APP_STORE));
const std::string GET_BUTTON = storeElement(R"(label MATCHES "get" OR label MATCHES "GET")");

/// The way to the product's page, once the browser's data are cleared on a newer system.
Flow towardsProduct() {
  return Flow()
      .launches(SETTINGS)
      .swipesTo("Safari")
      .taps("Safari")
      .swipesTo("Clear History and Website Data")
      .taps("Clear History and Website Data")
      .asksFor("ClearHistoryButton")
      .taps("All history")
      .readsValueOf("CloseAllTabsSwitch")
      .taps("ClearHistoryButton")
      .terminates(SETTINGS)
      .terminates(BROWSER)
      .launches(BROWSER)
      .types(LINK, "Address")
      .does("tap: the element (single) of the Button descendants, keyed \"go\" of " + appInWords(BROWSER))
      .turnsTo(APP_STORE)
      .does("wait 30 s for existence: " + SHARE);
}

Flow towardsChoice() {
  return towardsProduct().does("exists: " + OPEN_BUTTON).asksFor("re-download");
}

Flow towardsGet() {
  return towardsChoice().pauses(1000).does("exists: " + GET_BUTTON);
}

Flow towardsDownload() {
  return towardsGet()
      .does("tap: " + GET_BUTTON)
      .pauses(2000)
      .does("tap: " + CONFIRMATION)
      .does("wait 300 s for existence: " + OPEN_BUTTON);
}

void install() {
  Application::installApp(LINK);
}

std::string testingApp() {
  return TestContext::shared().getTestingApp().bundleIdentifier();
}

/// An App Store that shows a product that the account never had; a test says what else there is.
class InstallFlow : public testing::FlowTest {
 protected:
  InstallFlow() {
    answers = [](AnsweringDriver& driver) {
      driver.countOf = allBut({"re-download"});
      driver.existsOf = [](const std::string& element) { return element != OPEN_BUTTON; };
    };
  }

  /// What else the phone answers.
  void alsoAnswer(const std::function<void(AnsweringDriver&)>& more) {
    answers = [before = answers, more](AnsweringDriver& driver) {
      before(driver);
      more(driver);
    };
  }

  /// Expects that the installation fails, with the App Store as the application that commands act on.
  void expectFailure(const Flow& flow, const std::string& message) const {
    const AnsweringDriver& driver = phone();
    EXPECT_THAT(install, testing::raisesFdslError(message));
    EXPECT_EQ(driver.operations, flow.operations());
    EXPECT_EQ(testingApp(), APP_STORE);
  }
};

TEST_F(InstallFlow, OfAnApplicationThatTheAccountNeverHad) {
  expectEachErrorToEnd(towardsDownload().terminates(APP_STORE), install);
  operationsOf(install);
  EXPECT_EQ(testingApp(), APP_STORE);
}

TEST_F(InstallFlow, OfAnApplicationThatTheAccountHadBeforeTapsNoGetButtonAndConfirmsNothing) {
  alsoAnswer([](AnsweringDriver& driver) { driver.countOf = allBut({}); });
  const Flow installing =
      towardsChoice().taps("re-download").does("wait 300 s for existence: " + OPEN_BUTTON).terminates(APP_STORE);
  expectEachErrorToEnd(installing, install);
}

TEST_F(InstallFlow, TakesAFailedLookForTheOtherButtonForANo) {
  alsoAnswer([](AnsweringDriver& driver) {
    driver.before = [](const std::string& operation) {
      if (operation == "count: " + textQueryInWords("MATCHES", "re-download", appInWords(APP_STORE))) {
        throw UIAutomationError("The phone is gone.");
      }
    };
  });
  EXPECT_EQ(operationsOf(install), towardsDownload().terminates(APP_STORE).operations());
}

TEST_F(InstallFlow, FailsWhereTheLinkShowsNoProduct) {
  alsoAnswer([](AnsweringDriver& driver) {
    driver.waitOf = [](const std::string& element) {
      return element == SHARE ? XCTWaiterResult::timedOut : XCTWaiterResult::completed;
    };
  });
  expectFailure(towardsProduct(), "The share button was not found");
}

TEST_F(InstallFlow, FailsWhereTheApplicationIsInstalled) {
  alsoAnswer([](AnsweringDriver& driver) { driver.existsOf = [](const std::string&) { return true; }; });
  expectFailure(towardsProduct().does("exists: " + OPEN_BUTTON),
                "The application https://apps.example.com/app/id7?l=en is already installed");
}

TEST_F(InstallFlow, FailsWithoutAGetButton) {
  alsoAnswer([](AnsweringDriver& driver) { driver.existsOf = [](const std::string&) { return false; }; });
  expectFailure(towardsGet(), "The get button was not found");
}

TEST_F(InstallFlow, FailsWhereTheDownloadTakesTooLong) {
  alsoAnswer([](AnsweringDriver& driver) {
    driver.waitOf = [](const std::string& element) {
      return element == OPEN_BUTTON ? XCTWaiterResult::timedOut : XCTWaiterResult::completed;
    };
  });
  expectFailure(towardsDownload(), "The open button was not found");
}

TEST_F(InstallFlow, FailsWhereTheOtherButtonCannotBeTapped) {
  alsoAnswer([](AnsweringDriver& driver) {
    driver.countOf = allBut({});
    driver.labelAnswer = "re-download";
    driver.isHittableAnswer = [&driver] { return driver.operations.back().find("re-download") == std::string::npos; };
  });
  const std::string button = testing::textElementInWords("MATCHES", "re-download", appInWords(APP_STORE));
  expectFailure(towardsChoice()
                    .does("count: " + textQueryInWords("MATCHES", "re-download", appInWords(APP_STORE)))
                    .does("isHittable: " + button)
                    .does("label: " + button),
                "The element re-download is not hittable");
}

TEST_F(InstallFlow, FailsWithTheBrowserWhereItHasNoAddressField) {
  alsoAnswer([](AnsweringDriver& driver) { driver.countOf = allBut({"Address"}); });
  phone();
  EXPECT_THAT(install, testing::raisesFdslError("The expected text Address was not found"));
  EXPECT_EQ(testingApp(), BROWSER);
}

TEST_F(InstallFlow, TypesAnyText) {
  phone();
  EXPECT_NO_THROW(Application::installApp(""));
}

/// A simulated phone, on whose App Store a download ends after a time.
class Install : public ::testing::Test {
 protected:
  ~Install() override {
    UIDriver::install(nullptr);
    Clock::install(std::make_unique<SystemClock>());
  }

  void switchOn(const testing::MemoryPhoneFiles& files) {
    UIDriver::install(nullptr);
    auto clock = std::make_unique<conformance::EventfulClock>();
    clock_ = clock.get();
    Clock::install(std::move(clock));
    auto simulated = std::make_unique<simulator::SimulatedDriver>(simulator::loadPhone(files), *clock_);
    phone_ = &simulated->phone();
    auto driver = std::make_unique<testing::RecordingDriver>(std::move(simulated));
    driver_ = driver.get();
    UIDriver::install(std::move(driver));
    start_ = clock_->now();
  }

  /// Switches a phone on that shows the product with that button.
  void switchOnWith(const std::string& productButton) {
    switchOn(filesOf({.hasAppStoreLink = true, .productButton = productButton}));
  }

  /// The download ends that long after the installation begins to wait for it.
  void downloadIn(milliseconds duration) {
    driver_->before = [this, duration](std::string_view name, const std::string& target) {
      if (name == "waitForExistence" && target == OPEN_BUTTON) {
        clock_->after(duration, [this] { phone_->touch({5, 5}, Seconds::zero()); });
        waitBegin_ = clock_->now();
      }
    };
  }

  std::chrono::nanoseconds waited() const { return clock_->now() - waitBegin_; }

  conformance::EventfulClock* clock_ = nullptr;
  simulator::Phone* phone_ = nullptr;
  testing::RecordingDriver* driver_ = nullptr;
  Clock::TimePoint start_;
  Clock::TimePoint waitBegin_;
};

TEST_F(Install, WaitsForTheDownloadAndEndsTheAppStore) {
  switchOnWith("GET");
  downloadIn(milliseconds(299'999));
  install();
  EXPECT_GE(waited(), milliseconds(299'999));
  EXPECT_LE(waited(), milliseconds(300'000));
  EXPECT_THAT(driver_->operations, Contains("tap: " + CONFIRMATION));
  EXPECT_EQ(phone_->running(APP_STORE), nullptr);
  EXPECT_EQ(testingApp(), APP_STORE);
}

TEST_F(Install, FailsAfterFiveMinutesThoughTheDownloadIsAboutToEnd) {
  switchOnWith("GET");
  downloadIn(milliseconds(300'001));
  EXPECT_THAT(install, testing::raisesFdslError("The open button was not found"));
  EXPECT_EQ(waited(), milliseconds(300'000));
  EXPECT_NE(phone_->running(APP_STORE), nullptr);
}

TEST_F(Install, GetsAnOldAcquaintanceWithoutAConfirmation) {
  switchOnWith("re-download");
  downloadIn(milliseconds(5'000));
  install();
  EXPECT_THAT(driver_->operations, Not(Contains("tap: " + CONFIRMATION)));
  EXPECT_EQ(phone_->running(APP_STORE), nullptr);
}

TEST_F(Install, ButtonsOnlyCountWithTheirWholeLabelInOneOfTwoSpellings) {
  for (const std::string label : {"open", "OPEN"}) {
    switchOnWith(label);
    EXPECT_THAT(install,
                testing::raisesFdslError("The application https://apps.example.com/app/id7?l=en is already installed"));
    // The browser's data are cleared all the same.
    EXPECT_THAT(driver_->operations, Contains("terminate: com.apple.Preferences"));
  }
  for (const std::string label : {"Open", "reopen", "OPEN IT", "Get", "GET IT", "forget"}) {
    switchOnWith(label);
    EXPECT_THAT(install, testing::raisesFdslError("The get button was not found")) << label;
  }
}

TEST_F(Install, TakesTheGetButtonInEitherSpelling) {
  for (const std::string label : {"get", "GET"}) {
    switchOnWith(label);
    EXPECT_THAT(install, testing::raisesFdslError("The open button was not found"));
    EXPECT_THAT(driver_->operations, Contains("tap: " + GET_BUTTON));
  }
}

TEST_F(Install, WaitsHalfAMinuteForTheProduct) {
  testing::MemoryPhoneFiles files = filesOf({.hasAppStoreLink = true});
  files["store/start.xml"] = R"(<XCUIElementTypeButton label="Share this" x="0" y="0" width="100" height="40"/>)";
  switchOn(files);
  EXPECT_THAT(install, testing::raisesFdslError("The share button was not found"));
  // The two swipes through Settings come to rest before.
  EXPECT_EQ(clock_->now() - start_, milliseconds(2'000 + 30'000));
}

TEST_F(Install, NeedsTheKeyThatSubmits) {
  testing::MemoryPhoneFiles files = filesOf({.hasAppStoreLink = true});
  // The field of this browser is an ordinary one, whose keyboard has a return key; it is tapped, and the keyboard goes.
  files["browser/start.xml"] = R"(<XCUIElementTypeTextField label="Address" x="0" y="0" width="100" height="40"/>)";
  switchOn(files);
  EXPECT_THAT(install, ThrowsMessage<UIAutomationError>(
                           "tap of the element (single) of the Button descendants, keyed \"go\" of the application "
                           "\"com.apple.mobilesafari\" on the simulated phone: it does not exist"));
  EXPECT_EQ(testingApp(), BROWSER);
}

}  // namespace
}  // namespace quobrak
