#include "quobrakUITests/BrowserManager.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/ReferencePage.h"
#include "quobrakUITests/TestContext.h"
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
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using testing::filesOf;
using testing::Flow;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;
using testing::StorePhone;
using testing::textElementInWords;
using testing::textQueryInWords;
using ::testing::ThrowsMessage;

constexpr const char* SETTINGS = "com.apple.Preferences";
constexpr const char* BROWSER = "com.apple.mobilesafari";
constexpr bool USE_BLANK_PAGE = true;

/// The way through Settings to the question of how the screen looks that asks for a confirmation.
Flow towardsClearing() {
  return Flow()
      .launches(SETTINGS)
      .swipesTo("Safari")
      .taps("Safari")
      .swipesTo("Clear History and Website Data")
      .taps("Clear History and Website Data")
      .asksFor("ClearHistoryButton");
}

Flow clearingOnNewerScreen() {
  return towardsClearing()
      .taps("All history")
      .readsValueOf("CloseAllTabsSwitch")
      .taps("ClearHistoryButton")
      .terminates(SETTINGS);
}

Flow clearingOnNewerScreenWithSwitch() {
  return towardsClearing()
      .taps("All history")
      .readsValueOf("CloseAllTabsSwitch")
      .taps("CloseAllTabsSwitch")
      .taps("ClearHistoryButton")
      .terminates(SETTINGS);
}

Flow clearingOnOlderScreen() {
  return towardsClearing()
      .taps("Clear History and Data")
      .pauses(3000)
      .asksFor("Keep Tabs")
      .taps("Close Tabs")
      .terminates(SETTINGS);
}

Flow preparing() {
  return clearingOnNewerScreen().terminates(BROWSER).launches(BROWSER);
}

Flow preparingForReference(const std::string& page) {
  return preparing().types(page, "Address").taps("go").pauses(60000);
}

std::string testingApp() {
  return TestContext::shared().getTestingApp().bundleIdentifier();
}

class BrowserManagerFlow : public testing::FlowTest {
 protected:
  void answerAsOlderSystem() {
    answers = [](AnsweringDriver& driver) { driver.countOf = allBut({"ClearHistoryButton"}); };
  }
};

TEST_F(BrowserManagerFlow, LaunchOfTheBrowserMakesItTheApplicationThatCommandsActOn) {
  EXPECT_EQ(operationsOf(BrowserManager::launchBrowser), Flow().launches(BROWSER).operations());
  EXPECT_EQ(testingApp(), BROWSER);
  expectEachErrorToEnd(Flow().launches(BROWSER), BrowserManager::launchBrowser);
}

TEST_F(BrowserManagerFlow, AddressIsTypedAndNotSubmitted) {
  TestContext::shared().setTestingApp(BROWSER);
  const Flow typing = Flow().turnsTo(BROWSER).types("https://example.com/a?b", "Address");
  expectEachErrorToEnd(typing, [] { BrowserManager::browserGoToUrl("https://example.com/a?b"); });
}

TEST_F(BrowserManagerFlow, AddressIsTypedIntoWhicheverApplicationIsTheOneThatCommandsActOn) {
  TestContext::shared().setTestingApp("com.example.test");
  EXPECT_EQ(operationsOf([] { BrowserManager::browserGoToUrl("a"); }),
            Flow().turnsTo("com.example.test").types("a", "Address").operations());
}

TEST_F(BrowserManagerFlow, AddressNeedsAnApplication) {
  phone();
  EXPECT_THAT([] { BrowserManager::browserGoToUrl("https://example.com"); }, testing::raisesNotInitialised());
}

TEST_F(BrowserManagerFlow, ClearingOnTheNewerScreen) {
  expectEachErrorToEnd(clearingOnNewerScreen(), BrowserManager::clearCache);
}

TEST_F(BrowserManagerFlow, ClearingOnTheNewerScreenTurnsOnTheSwitchThatIsOff) {
  answers = [](AnsweringDriver& driver) { driver.valueAnswer = std::string("0"); };
  expectEachErrorToEnd(clearingOnNewerScreenWithSwitch(), BrowserManager::clearCache);
}

TEST_F(BrowserManagerFlow, ClearingLeavesTheSwitchAloneWhateverElseItsValueIs) {
  for (const ElementValue& value :
       {ElementValue(std::string("1")), ElementValue(), ElementValue(OtherValue()), ElementValue(std::string()),
        ElementValue(std::string("00")), ElementValue(std::string(" 0")), ElementValue(std::string("off"))}) {
    answers = [&value](AnsweringDriver& driver) { driver.valueAnswer = value; };
    EXPECT_EQ(operationsOf(BrowserManager::clearCache), clearingOnNewerScreen().operations());
  }
}

TEST_F(BrowserManagerFlow, ClearingOnTheOlderScreen) {
  answerAsOlderSystem();
  expectEachErrorToEnd(clearingOnOlderScreen(), BrowserManager::clearCache);
}

TEST_F(BrowserManagerFlow, ClearingOnTheOlderScreenDoesNotLookForCloseTabsWhereNothingIsAsked) {
  answers = [](AnsweringDriver& driver) { driver.countOf = allBut({"ClearHistoryButton", "Keep Tabs", "Close Tabs"}); };
  const Flow clearing =
      towardsClearing().taps("Clear History and Data").pauses(3000).asksFor("Keep Tabs").terminates(SETTINGS);
  expectEachErrorToEnd(clearing, BrowserManager::clearCache);
}

/// Lets the look for an element fail that the selector matches.
void loseLooksFor(AnsweringDriver& driver, const std::string& selector) {
  driver.before = [look = "count: " +
                          textQueryInWords("MATCHES", selector, appInWords(SETTINGS))](const std::string& operation) {
    if (operation == look) {
      throw UIAutomationError("The phone is gone.");
    }
  };
}

TEST_F(BrowserManagerFlow, ClearingTakesAFailedLookForANo) {
  answers = [](AnsweringDriver& driver) { loseLooksFor(driver, "ClearHistoryButton"); };
  EXPECT_EQ(operationsOf(BrowserManager::clearCache), clearingOnOlderScreen().operations());
  answers = [](AnsweringDriver& driver) {
    driver.countOf = allBut({"ClearHistoryButton"});
    loseLooksFor(driver, "Keep Tabs");
  };
  EXPECT_THAT(operationsOf(BrowserManager::clearCache), Not(::testing::Contains(HasSubstr("Close Tabs"))));
}

TEST_F(BrowserManagerFlow, ClearingSaysWhatItDoesNotFindAndLeavesSettingsRunning) {
  struct Row {
    std::vector<std::string> missing;
    std::string said;
  };
  const Row ROWS[] = {{{"Safari"}, "Safari"},
                      {{"Clear History and Website Data"}, "Clear History and Website Data"},
                      {{"All history"}, "All history"},
                      {{"ClearHistoryButton", "Clear History and Data"}, "Clear History and Data"},
                      {{"ClearHistoryButton", "Close Tabs"}, "Close Tabs"}};
  for (const Row& row : ROWS) {
    answers = [&row](AnsweringDriver& driver) { driver.countOf = allBut(row.missing); };
    const AnsweringDriver& driver = phone();
    EXPECT_THAT(BrowserManager::clearCache,
                testing::raisesFdslError("The expected text " + row.said + " was not found"));
    EXPECT_EQ(driver.operations.back(), "count: " + textQueryInWords("MATCHES", row.said, appInWords(SETTINGS)));
    EXPECT_EQ(testingApp(), SETTINGS);
  }
}

TEST_F(BrowserManagerFlow, ClearingFindsTheSwitchByAPartOfItsTexts) {
  answers = [](AnsweringDriver& driver) {
    driver.countOf = [](const std::string& query) {
      return query == textQueryInWords("CONTAINS[c]", "CloseAllTabsSwitch", appInWords(SETTINGS)) ? 0U : 1U;
    };
  };
  phone();
  EXPECT_THAT(BrowserManager::clearCache,
              testing::raisesFdslError("The expected text CloseAllTabsSwitch was not found"));
}

TEST_F(BrowserManagerFlow, ClearingSaysWhatItCannotTap) {
  answers = [](AnsweringDriver& driver) {
    driver.isHittableAnswer = [&driver] { return driver.actions().size() < 3; };
    driver.labelAnswer = "All history";
  };
  phone();
  EXPECT_THAT(BrowserManager::clearCache, testing::raisesFdslError("The element All history is not hittable"));
  EXPECT_EQ(testingApp(), SETTINGS);
}

TEST_F(BrowserManagerFlow, ClearingSwipesInTheMiddleAsOftenAsAScriptWould) {
  answers = [](AnsweringDriver& driver) { driver.isHittableAnswer = [] { return false; }; };
  const AnsweringDriver& driver = phone();
  EXPECT_THAT(BrowserManager::clearCache,
              testing::raisesFdslError("The selector Safari has not been found after the swipe"));
  constexpr std::size_t LAUNCH = 1;
  constexpr std::size_t SWIPES = 30;
  const std::vector<std::string> actions = driver.actions();
  // Each swipe and the pause behind it.
  ASSERT_EQ(actions.size(), LAUNCH + 2 * SWIPES);
  EXPECT_EQ(actions[LAUNCH], "drag after 0 s: " + testing::pointInWords("(0.5, 0.9)", appInWords(SETTINGS)) + " to " +
                                 testing::pointInWords("(0.5, 0.2)", appInWords(SETTINGS)));
  EXPECT_EQ(actions[LAUNCH + 1], "pause 1000 ms");
}

TEST_F(BrowserManagerFlow, PreparingClearsAndStartsTheBrowserAnew) {
  expectEachErrorToEnd(preparing(), BrowserManager::prepareAndOpen);
  operationsOf(BrowserManager::prepareAndOpen);
  EXPECT_EQ(testingApp(), BROWSER);
}

TEST_F(BrowserManagerFlow, PreparingForAReferenceShowsTheBlackPageForAMinute) {
  expectEachErrorToEnd(preparingForReference(ReferencePage().address()),
                       [] { BrowserManager::prepareAndOpenForReference(!USE_BLANK_PAGE); });
}

TEST_F(BrowserManagerFlow, PreparingForAReferenceShowsTheBlackPageThatIsConfigured) {
  ReferencePage::install(ReferencePage::at("https://10.0.0.7:8443/black/index.html").value());
  EXPECT_EQ(operationsOf([] { BrowserManager::prepareAndOpenForReference(!USE_BLANK_PAGE); }),
            preparingForReference("https://10.0.0.7:8443/black/index.html").operations());
}

TEST_F(BrowserManagerFlow, PreparingForAReferenceCanShowTheBlankPage) {
  ReferencePage::install(ReferencePage::at("https://10.0.0.7:8443/black/index.html").value());
  expectEachErrorToEnd(preparingForReference("about:blank"),
                       [] { BrowserManager::prepareAndOpenForReference(USE_BLANK_PAGE); });
}

TEST_F(BrowserManagerFlow, PreparingForAReferenceNeedsTheKeyThatSubmits) {
  answers = [](AnsweringDriver& driver) { driver.countOf = allBut({"go"}); };
  phone();
  EXPECT_THAT([] { BrowserManager::prepareAndOpenForReference(USE_BLANK_PAGE); },
              testing::raisesFdslError("The expected text go was not found"));
  EXPECT_EQ(testingApp(), BROWSER);
}

// On a simulated phone.

/// What was tapped so far: "Safari", by the pattern that it was searched with.
std::vector<std::string> tapped(testing::TestPlatform& platform) {
  const std::string begin = "tap: the element (at index 0) of the descendants, matching label MATCHES \"";
  std::vector<std::string> selectors;
  for (const std::string& operation : platform.driver().operations) {
    if (operation.starts_with(begin)) {
      selectors.push_back(operation.substr(begin.size(), operation.find('"', begin.size()) - begin.size()));
    }
  }
  return selectors;
}

TEST(BrowserManager, ClearsOnNewerAndOlderSystems) {
  struct Row {
    StorePhone phone;
    std::vector<std::string> lastTaps;
    milliseconds pause;
  };
  const Row ROWS[] = {
      {{.closeAllTabs = "0"}, {"All history", "CloseAllTabsSwitch", "ClearHistoryButton"}, milliseconds(0)},
      {{.closeAllTabs = "1"}, {"All history", "ClearHistoryButton"}, milliseconds(0)},
      {{.isOlder = true}, {"Clear History and Data", "Close Tabs"}, milliseconds(3000)},
      {{.isOlder = true, .asksAboutTabs = false}, {"Clear History and Data"}, milliseconds(3000)}};
  for (const Row& row : ROWS) {
    testing::TestPlatform platform(filesOf(row.phone));
    BrowserManager::clearCache();
    std::vector<std::string> expected{"Safari", "Clear History and Website Data"};
    expected.insert(expected.end(), row.lastTaps.begin(), row.lastTaps.end());
    EXPECT_THAT(tapped(platform), ElementsAreArray(expected));
    EXPECT_EQ(platform.phone().running(SETTINGS), nullptr);
    // Two swipes on the way, each with a second to come to rest.
    EXPECT_EQ(platform.elapsed(), milliseconds(2000) + row.pause);
  }
}

TEST(BrowserManager, ClearingLeavesSettingsTheApplicationThatCommandsActOn) {
  testing::TestPlatform platform(filesOf({}));
  BrowserManager::clearCache();
  EXPECT_EQ(testingApp(), SETTINGS);
  EXPECT_THAT([] { Find::findByText({.selector = "Safari", .nthElement = 1, .isEnabled = true, .isTextExact = true}); },
              testing::raisesFdslError("The expected text Safari was not found"));
}

TEST(BrowserManager, ClearingStopsTheProcessWhereSettingsHasNoRowForTheBrowser) {
  testing::MemoryPhoneFiles files = filesOf({});
  files["settings/start.xml"] = R"(<XCUIElementTypeCell label="General" x="0" y="0" width="100" height="40"/>)";
  testing::TestPlatform platform(files);
  EXPECT_DEATH(BrowserManager::clearCache(),
               ::testing::Eq("Fatal error: Unexpectedly raised an error: the search for Safari before a swipe: The "
                             "expected text Safari was not found\n"));
}

TEST(BrowserManager, ClearingNeedsSettings) {
  testing::TestPlatform platform;
  EXPECT_THAT(BrowserManager::clearCache,
              ThrowsMessage<UIAutomationError>(StartsWith("launch of the application \"com.apple.Preferences\"")));
  EXPECT_EQ(testingApp(), SETTINGS);
}

TEST(BrowserManager, ReferencePageIsShownForAMinute) {
  testing::TestPlatform platform(filesOf({}));
  BrowserManager::prepareAndOpenForReference(USE_BLANK_PAGE);
  EXPECT_TRUE(platform.phone().isInFront(BROWSER));
  EXPECT_TRUE(Find::isTextExactExists("Page"));
  EXPECT_EQ(platform.elapsed(), milliseconds(2000 + 60000));
}

TEST(BrowserManager, AddressAloneDoesNotLoadThePage) {
  testing::TestPlatform platform(filesOf({}));
  BrowserManager::launchBrowser();
  BrowserManager::browserGoToUrl("https://example.com/page");
  EXPECT_FALSE(Find::isTextExactExists("Page"));
  const XCUIElement field =
      Find::findByText({.selector = "Address", .nthElement = 1, .isEnabled = true, .isTextExact = true});
  EXPECT_EQ(field.value(), ElementValue(std::string("https://example.com/page")));
}

}  // namespace
}  // namespace quobrak
