#include "quobrakUITests/CommandTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/CommandDispatch.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/quobrakUITests.h"
#include "tests/quobrakUITests/AnsweringDriver.h"
#include "tests/quobrakUITests/QueryWords.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using std::chrono::milliseconds;
using testing::AnsweringDriver;
using testing::APP_IN_WORDS;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Eq;
using testing::pointInWords;
using ::testing::SizeIs;
using ::testing::StartsWith;
using testing::textElementInWords;
using ::testing::ThrowsMessage;

constexpr const char* GO = R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)";

void run(const std::vector<std::string_view>& fields) {
  dispatchCommand(commandTable(), fields);
}

/// Makes every picture take that long.
void slowDownScreenshots(testing::TestPlatform& platform, milliseconds duration) {
  platform.driver().before = [duration](std::string_view name, const std::string&) {
    if (name == "screenshot") {
      Clock::shared().usleep(static_cast<std::uint32_t>(std::chrono::microseconds(duration).count()));
    }
  };
}

void failToWrite(testing::TestPlatform& platform) {
  platform.files().before = [](std::string_view operation, const std::string&) {
    if (operation == "write") {
      throw FileManagerError("The disk is full.");
    }
  };
}

/// The words of an argument: its field, its label, its unit, and the default where it has one.
std::string inWords(const ArgumentInfo& argument) {
  struct DefaultInWords {
    std::string operator()(std::monostate) const { return ""; }
    std::string operator()(std::int64_t number) const { return " = " + std::to_string(number); }
    std::string operator()(bool truth) const { return truth ? " = true" : " = false"; }
  };
  constexpr std::string_view UNITS[] = {"text", "milliseconds", "percent", "points", "count", "truth value"};
  return std::to_string(argument.field) + " " + std::string(argument.label) + " (" +
         std::string(UNITS[static_cast<std::size_t>(argument.unit)]) + ")" +
         std::visit(DefaultInWords{}, argument.defaultValue);
}

/// A command and its arguments, in words.
using RowInWords = std::pair<std::string_view, std::vector<std::string>>;

std::vector<RowInWords> rowsInWords(std::span<const CommandRow> table) {
  std::vector<RowInWords> rows;
  for (const CommandRow& row : table) {
    std::vector<std::string> arguments;
    for (const ArgumentInfo& argument : row.arguments()) {
      arguments.push_back(inWords(argument));
    }
    rows.emplace_back(row.name, arguments);
  }
  return rows;
}

TEST(CommandTable, HasAllCommandsInOrderWithTheirArguments) {
  using Words = std::vector<std::string>;
  const Words none{};
  const Words bundleId{"1 bundleId (text)"};
  const Words selector{"1 selector (text)"};
  const Words search{"1 selector (text)", "2 nthElement (count) = 1", "3 isEnabled (truth value) = true"};
  const Words wait{"1 selector (text)", "2 timeout (milliseconds) = 30000"};
  const Words waitThenTap{"1 selector (text)", "2 clickOnlyIfExists (truth value) = false"};
  const Words setText{"1 textToSet (text)", "2 textSelector (text)"};
  const Words swipeToText{"1 selector (text)", "2 maxSwipe (count) = 30", "3 percX (percent) = 50"};
  const std::vector<RowInWords> expected = {
      {"applicationStart", bundleId},
      {"applicationKill", bundleId},
      {"launchBrowser", none},
      {"browserGoToUrl", {"1 url (text)"}},
      {"browserClearCache", none},
      {"browserPrepareAndOpen", none},
      {"browserPrepareAndOpenForReference", {"1 useBlankPage (truth value) = false"}},
      {"clickByText", selector},
      {"clickByTextExact", selector},
      {"longClickByText", {"1 selector (text)", "2 duration (milliseconds) = 1000"}},
      {"clickByTextOnSystemPopup", selector},
      {"clickByXY", {"1 x (points)", "2 y (points)"}},
      {"longClickByXY", {"1 x (points)", "2 y (points)", "3 duration (milliseconds) = 1000"}},
      {"clickByPercent", {"1 xPercentage (percent)", "2 yPercentage (percent)"}},
      {"clickOnLastElementFound", none},
      {"findByClass", search},
      {"findByText", search},
      {"findByTextExact", search},
      {"installApp", {"1 appStoreUrl (text)"}},
      {"measureStart", {"1 stepName (text)"}},
      {"measureStop", none},
      {"pause", {"1 timeMillis (milliseconds)"}},
      {"pressHome", none},
      {"pressVolumeUp", none},
      {"pressVolumeDown", none},
      {"waitUntilText", wait},
      {"waitUntilTextExact", wait},
      {"waitUntilAccessibilityField", wait},
      {"waitUntilAccessibilityFieldExact", wait},
      {"waitUntilTextOnSystemPopup", wait},
      {"waitUntilGoneText", wait},
      {"waitUntilGoneTextExact", wait},
      {"waitUntilGoneAccessibilityField", wait},
      {"waitUntilGoneAccessibilityFieldExact", wait},
      {"waitUntilTextBeforeClick", waitThenTap},
      {"waitUntilTextExactBeforeClick", waitThenTap},
      {"waitUntilAccessibilityFieldBeforeClick", waitThenTap},
      {"waitUntilAccessibilityFieldExactBeforeClick", waitThenTap},
      {"enterText", {"1 text (text)", "2 period (milliseconds) = 0"}},
      {"enterTextFast", {"1 text (text)"}},
      {"setTextByText", setText},
      {"setTextByTextExact", setText},
      {"scrollDownward", none},
      {"scrollUpward", none},
      {"scrollLeftward", none},
      {"scrollRightward", none},
      {"swipeDownward", {"1 percX (percent) = 50", "2 percStartY (percent) = 90"}},
      {"swipeUpward", {"1 percX (percent) = 50", "2 percStartY (percent) = 10"}},
      {"swipeLeftward", {"1 percY (percent)"}},
      {"swipeRightward", {"1 percY (percent)"}},
      {"swipeVertical", {"1 percStartY (percent)", "2 percEndY (percent)", "3 percX (percent)"}},
      {"swipeHorizontal", {"1 percStartX (percent)", "2 percEndX (percent)", "3 percY (percent)"}},
      {"swipeDownwardToText", swipeToText},
      {"swipeUpwardToText", swipeToText},
  };
  EXPECT_EQ(expected.size(), 54U);
  EXPECT_EQ(rowsInWords(commandTable()), expected);
}

TEST(CommandTable, NamesAreComparedExactly) {
  for (const std::string name : {"clickbytext", "Pause", "pause ", " pause", "findByColour"}) {
    EXPECT_THAT([&] { run({name, "100"}); }, testing::raisesFdslError("Function " + name + " is not implemented"));
  }
}

TEST(CommandTable, ApplicationStart) {
  testing::TestPlatform platform;
  run({"applicationStart", "com.example.test"});
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test"));
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
}

TEST(CommandTable, ApplicationKill) {
  testing::TestPlatform platform;
  run({"applicationKill", "com.example.test"});
  EXPECT_THAT(platform.driver().operations, ElementsAre("terminate: com.example.test"));
}

TEST(CommandTable, ClickByText) {
  testing::TestPlatform platform(GO, R"([{"on": "tap", "element": "label == 'Go'",
                                          "do": [{"open": "com.apple.springboard"}]}])");
  run({"applicationStart", "com.example.test"});
  run({"clickByText", "go"});
  EXPECT_TRUE(platform.phone().isInFront("com.apple.springboard"));
}

TEST(CommandTable, ErrorsOfOperationsPassUnchanged) {
  testing::TestPlatform platform(GO);
  EXPECT_THAT([] { run({"clickByText", "Go"}); }, testing::raisesNotInitialised());
  EXPECT_THAT(
      [] {
        run({"applicationStart", "none"});
      },
      ThrowsMessage<UIAutomationError>("launch of the application \"none\" on the simulated phone: it is not "
                                       "installed; installed are com.apple.springboard, com.example.test"));
}

TEST(CommandTable, Pause) {
  testing::TestPlatform platform;
  run({"pause", "1500"});
  EXPECT_EQ(platform.elapsed(), milliseconds(1500));
  run({"pause", "0"});
  run({"pause", "+5", "", "x"});
  EXPECT_EQ(platform.elapsed(), milliseconds(1505));
}

TEST(CommandTable, PauseWithAWrongDuration) {
  testing::TestPlatform platform;
  EXPECT_THAT([] { run({"pause"}); }, testing::raisesFdslError("The pause duration is missing"));
  EXPECT_THAT(
      [] {
        run({"pause", "-5"});
      },
      testing::raisesFdslError("The pause duration -5 should be a positive integer"));
  EXPECT_THAT(
      [] {
        run({"pause", " 100"});
      },
      testing::raisesFdslError("The pause duration  100 should be a positive integer"));
  EXPECT_THAT([] { run({"pause", ""}); }, testing::raisesFdslError("The pause duration  should be a positive integer"));
  EXPECT_EQ(platform.elapsed(), milliseconds(0));
}

TEST(CommandTable, ButtonsOfTheDevice) {
  testing::TestPlatform platform;
  run({"pressHome"});
  run({"pressVolumeUp", "ignored"});
  run({"pressVolumeDown", ""});
  EXPECT_THAT(platform.driver().operations,
              ElementsAre("pressButton: home", "pressButton: volumeUp", "pressButton: volumeDown"));
}

TEST(CommandTable, MeasureStartTakesThePictureFirst) {
  testing::TestPlatform platform;
  TestContext::shared().setIterationPath("results");
  slowDownScreenshots(platform, milliseconds(300));
  run({"measureStart", "Home"});
  EXPECT_THAT(platform.documents().files(), ElementsAre("results/screenshots/001_Home_start.png"));
  const TestResultV2 current = TestContext::shared().getCurrentTestResult();
  EXPECT_EQ(current.test, "Home");
  EXPECT_EQ(current.measures[0][0].time, 1700000000300);
}

TEST(CommandTable, MeasureStopTakesThePictureLast) {
  testing::TestPlatform platform;
  TestContext::shared().setIterationPath("results");
  slowDownScreenshots(platform, milliseconds(300));
  run({"measureStart", "Home"});
  run({"pause", "1000"});
  run({"measureStop"});
  EXPECT_THAT(platform.documents().files(),
              ElementsAre("results/screenshots/001_Home_start.png", "results/screenshots/002_Home_stop.png"));
  ASSERT_EQ(TestContext::shared().getTestResults().size(), 1U);
  EXPECT_EQ(TestContext::shared().getTestResults()[0].test, "Home");
  EXPECT_EQ(TestContext::shared().getTestResults()[0].testTime, 1000);
  EXPECT_EQ(platform.elapsed(), milliseconds(1600));
}

TEST(CommandTable, MeasureStartWhosePictureFailsDoesNotBegin) {
  testing::TestPlatform platform;
  const TestResultV2 before = TestContext::shared().getCurrentTestResult();
  failToWrite(platform);
  EXPECT_THAT([] { run({"measureStart", "Home"}); }, testing::raisesDocumentDirectoryError("The disk is full."));
  EXPECT_EQ(TestContext::shared().getCurrentTestResult(), before);
}

TEST(CommandTable, MeasureStopWhosePictureFailsHasEndedTheMeasure) {
  testing::TestPlatform platform;
  run({"measureStart", "Home"});
  failToWrite(platform);
  EXPECT_THAT([] { run({"measureStop"}); }, testing::raisesDocumentDirectoryError("The disk is full."));
  ASSERT_EQ(TestContext::shared().getTestResults().size(), 1U);
  EXPECT_EQ(TestContext::shared().getTestResults()[0].test, "Home");
}

TEST(CommandTable, MeasureStopWithoutMeasureStartIsFatal) {
  testing::TestPlatform platform;
  EXPECT_DEATH(run({"measureStop"}),
               Eq("Fatal error: Index out of range: measureStop without a measureStart before it\n"));
}

TEST(CommandTable, EmptyNames) {
  testing::TestPlatform platform;
  EXPECT_THAT([] { run({"applicationStart", ""}); }, testing::raisesNotInitialised());
  run({"measureStart", ""});
  EXPECT_THAT(platform.documents().files(), ElementsAre("screenshots/001__start.png"));
  EXPECT_EQ(TestContext::shared().getCurrentTestResult().measures[0].size(), 1U);
}

/// Commands that wait, type or measure on a phone that answers that all is there.
struct AnsweringPhone {
  AnsweringPhone() { TestContext::shared().setTestingApp("com.example.test"); }
  testing::TestPlatform platform;
  AnsweringDriver& driver = AnsweringDriver::install();

  std::vector<std::string> actionsOf(const std::vector<std::string_view>& fields) {
    driver.operations.clear();
    run(fields);
    return driver.actions();
  }
};

TEST(CommandTable, ActionsOfTheCommandsOnElementsAndPoints) {
  const auto drag = [](const std::string& from, const std::string& to) {
    return "drag after 0 s: " + pointInWords(from) + " to " + pointInWords(to);
  };
  const std::string contains = textElementInWords("CONTAINS[c]", "a");
  const std::string matches = textElementInWords("MATCHES", "a");
  const std::string springboard = " of the application \"com.apple.springboard\"";
  const std::string button = "the element (single) of the Button descendants, keyed \"a\"" + springboard;
  const std::string scrollView = "the element (first) of the ScrollView descendants of " + APP_IN_WORDS;
  const std::string returnKey =
      "the element (at index 0) of the Button descendants, keyed \"return\" of " + APP_IN_WORDS;
  struct Row {
    std::vector<std::string_view> fields;
    std::vector<std::string> actions;
  };
  const Row ROWS[] = {
      {{"clickByText", "a"}, {"tap: " + contains}},
      {{"clickByTextExact", "a"}, {"tap: " + matches}},
      {{"longClickByText", "a"}, {"press 1 s: " + contains}},
      {{"longClickByText", "a", "2500"}, {"press 2.5 s: " + contains}},
      {{"clickByTextOnSystemPopup", "a"}, {"tap: " + button}},
      {{"clickByXY", "25", "50"}, {"tap: " + pointInWords("(0.25, 0.25)")}},
      {{"clickByXY", "", "x"}, {"tap: " + pointInWords("(0, 0)")}},
      {{"longClickByXY", "25", "50"}, {"press 1 s: " + pointInWords("(0.25, 0.25)")}},
      {{"longClickByXY", "25", "50", "-5"}, {"press -0.005 s: " + pointInWords("(0.25, 0.25)")}},
      {{"clickByPercent", "25", "+75"}, {"tap: " + pointInWords("(0.25, 0.75)")}},
      {{"clickOnLastElementFound"}, {"tap: " + contains}},
      {{"scrollDownward"}, {"swipe up: " + scrollView}},
      {{"scrollUpward"}, {"swipe down: " + scrollView}},
      {{"scrollLeftward"}, {"swipe right: " + scrollView}},
      {{"scrollRightward"}, {"swipe left: " + scrollView}},
      {{"swipeDownward"}, {drag("(0.5, 0.9)", "(0.5, 0.2)")}},
      {{"swipeDownward", "20"}, {drag("(0.2, 0.9)", "(0.2, 0.2)")}},
      {{"swipeDownward", "20", "70"}, {drag("(0.2, 0.7)", "(0.2, 0.2)")}},
      {{"swipeUpward"}, {drag("(0.5, 0.1)", "(0.5, 0.8)")}},
      {{"swipeUpward", "20", "30"}, {drag("(0.2, 0.3)", "(0.2, 0.8)")}},
      {{"swipeLeftward", "40"}, {drag("(0.2, 0.4)", "(0.8, 0.4)")}},
      {{"swipeRightward", "40"}, {drag("(0.8, 0.4)", "(0.2, 0.4)")}},
      {{"swipeVertical", "70", "30", "10"}, {drag("(0.1, 0.7)", "(0.1, 0.3)")}},
      {{"swipeHorizontal", "70", "30", "10"}, {drag("(0.7, 0.1)", "(0.3, 0.1)")}},
      {{"swipeDownwardToText", "a"}, {}},
      {{"swipeUpwardToText", "a", "1", "30"}, {}},
      {{"enterText", "ab"}, {"type \"a\": " + APP_IN_WORDS, "type \"b\": " + APP_IN_WORDS}},
      {{"enterTextFast", "ab"}, {"type \"ab\": " + APP_IN_WORDS}},
      {{"setTextByText", "text", "a"}, {"tap: " + contains, "type \"text\": " + contains, "tap: " + returnKey}},
      {{"setTextByTextExact", "text", "a"}, {"tap: " + matches, "type \"text\": " + matches, "tap: " + returnKey}},
  };
  AnsweringPhone phone;
  for (const auto& [fields, actions] : ROWS) {
    EXPECT_EQ(phone.actionsOf(fields), actions) << fields[0];
  }
}

TEST(CommandTable, ActionsOfTheCommandsOnTheBrowser) {
  AnsweringPhone phone;
  const std::string launchSettings = "launch: com.apple.Preferences";
  const std::string terminateSettings = "terminate: com.apple.Preferences";
  const std::string terminateBrowser = "terminate: com.apple.mobilesafari";
  const std::string launchBrowser = "launch: com.apple.mobilesafari";
  const auto applicationsOf = [&phone](const std::vector<std::string_view>& fields) {
    std::vector<std::string> actions = phone.actionsOf(fields);
    std::erase_if(actions, [](const std::string& action) {
      return !action.starts_with("launch: ") && !action.starts_with("terminate: ");
    });
    return actions;
  };
  EXPECT_THAT(applicationsOf({"launchBrowser"}), ElementsAre(launchBrowser));
  EXPECT_THAT(applicationsOf({"browserClearCache"}), ElementsAre(launchSettings, terminateSettings));
  EXPECT_THAT(applicationsOf({"browserPrepareAndOpen"}),
              ElementsAre(launchSettings, terminateSettings, terminateBrowser, launchBrowser));
  EXPECT_THAT(applicationsOf({"browserPrepareAndOpenForReference"}),
              ElementsAre(launchSettings, terminateSettings, terminateBrowser, launchBrowser));
  EXPECT_EQ(phone.platform.elapsed(), milliseconds(60000));
}

TEST(CommandTable, AddressesThatCommandsTypeIntoTheBrowser) {
  struct Row {
    std::vector<std::string_view> fields;
    std::string address;
  };
  const Row ROWS[] = {
      {{"browserGoToUrl", "https://example.com/a"}, "https://example.com/a"},
      {{"browserPrepareAndOpenForReference"}, "https://download.example.com/black/index.html"},
      {{"browserPrepareAndOpenForReference", "false"}, "https://download.example.com/black/index.html"},
      {{"browserPrepareAndOpenForReference", "true"}, "about:blank"},
      {{"installApp", "https://apps.example.com/app/id7"}, "https://apps.example.com/app/id7"},
  };
  AnsweringPhone phone;
  phone.driver.existsOf = [](const std::string& element) { return element.find("MATCHES \"open\"") == element.npos; };
  run({"launchBrowser"});
  for (const auto& [fields, address] : ROWS) {
    EXPECT_THAT(phone.actionsOf(fields),
                Contains("type \"" + address + "\": " +
                         textElementInWords("MATCHES", "Address", testing::appInWords("com.apple.mobilesafari"))))
        << fields[0];
  }
}

TEST(CommandTable, SwipesToATextAreThirtyInTheMiddleUnlessTheScriptSaysOtherwise) {
  struct Row {
    std::vector<std::string_view> fields;
    std::size_t swipes;
    std::string start;
  };
  const Row ROWS[] = {{{"swipeDownwardToText", "a"}, 30, "(0.5, 0.9)"},
                      {{"swipeDownwardToText", "a", "2"}, 2, "(0.5, 0.9)"},
                      {{"swipeDownwardToText", "a", "2", "20"}, 2, "(0.2, 0.9)"},
                      {{"swipeUpwardToText", "a"}, 30, "(0.5, 0.1)"},
                      {{"swipeUpwardToText", "a", "40", "20"}, 30, "(0.2, 0.1)"}};
  AnsweringPhone phone;
  phone.driver.isHittableAnswer = [] { return false; };
  for (const Row& row : ROWS) {
    EXPECT_THAT([&] { phone.actionsOf(row.fields); },
                testing::raisesFdslError("The selector a has not been found after the swipe"));
    EXPECT_THAT(phone.driver.actions(), SizeIs(row.swipes));
    EXPECT_THAT(phone.driver.actions()[0], StartsWith("drag after 0 s: " + pointInWords(row.start)));
  }
}

TEST(CommandTable, TextIsTypedWithoutPausesUnlessTheScriptSaysOtherwise) {
  AnsweringPhone phone;
  run({"enterText", "ab"});
  EXPECT_EQ(phone.platform.elapsed(), milliseconds(0));
  run({"enterText", "ab", "200"});
  EXPECT_EQ(phone.platform.elapsed(), milliseconds(400));
}

/// A wait, what it waits for in words ("%" is the time), and what the command says where it does not come about.
struct WaitRow {
  std::string_view command;
  std::string wait;
  std::string message;
};

std::vector<WaitRow> waitRows() {
  const auto existence = [](const std::string& condition) {
    return "wait % s for existence: the element (single) of the descendants, matching " + condition + " of " +
           APP_IN_WORDS;
  };
  const auto gone = [](const std::string& condition) {
    return "wait % s for NOT " + condition + ": the element (first) of the descendants, matching " + condition +
           " of " + APP_IN_WORDS;
  };
  const std::string notFound = "The expected element Login was not found";
  const std::string found = "Not expected element was found Login";
  return {
      {"waitUntilText", existence(R"(label CONTAINS[c] "Login")"), notFound},
      {"waitUntilTextExact", existence(R"(label MATCHES "Login")"), notFound},
      {"waitUntilAccessibilityField", existence(R"(identifier CONTAINS[c] "Login")"), notFound},
      {"waitUntilAccessibilityFieldExact", existence(R"(identifier MATCHES "Login")"), notFound},
      {"waitUntilTextOnSystemPopup",
       R"(wait % s for existence: the element (single) of the Button descendants, keyed "Login" of the application )"
       R"("com.apple.springboard")",
       notFound},
      {"waitUntilGoneText", gone(R"(label CONTAINS[c] "Login")"), found},
      {"waitUntilGoneTextExact", gone(R"(label MATCHES "Login")"), found},
      {"waitUntilGoneAccessibilityField", gone(R"(identifier CONTAINS[c] "Login")"), found},
      {"waitUntilGoneAccessibilityFieldExact", gone(R"(identifier MATCHES "Login")"), found},
  };
}

std::string withTime(std::string words, const std::string& seconds) {
  return words.replace(words.find('%'), 1, seconds);
}

TEST(CommandTable, WaitsThatComeAbout) {
  AnsweringPhone phone;
  for (const auto& [command, wait, message] : waitRows()) {
    EXPECT_THAT(phone.actionsOf({command, "Login"}), ElementsAre(withTime(wait, "30")));
    EXPECT_THAT(phone.actionsOf({command, "Login", "1500"}), ElementsAre(withTime(wait, "1.5")));
    EXPECT_THAT(phone.actionsOf({command, "Login", "-500", "ignored"}), ElementsAre(withTime(wait, "-0.5")));
  }
}

TEST(CommandTable, WaitsWhoseTimeRunsOut) {
  AnsweringPhone phone;
  phone.driver.waitOf = [](const std::string&) { return XCTWaiterResult::timedOut; };
  for (const WaitRow& row : waitRows()) {
    EXPECT_THAT([&] { run({row.command, "Login"}); }, testing::raisesFdslError(row.message)) << row.command;
  }
}

TEST(CommandTable, WaitsThenTaps) {
  struct Row {
    std::string_view command;
    std::string attribute;
    std::string comparison;
  };
  const Row ROWS[] = {{"waitUntilTextBeforeClick", "label", "CONTAINS[c]"},
                      {"waitUntilTextExactBeforeClick", "label", "MATCHES"},
                      {"waitUntilAccessibilityFieldBeforeClick", "identifier", "CONTAINS[c]"},
                      {"waitUntilAccessibilityFieldExactBeforeClick", "identifier", "MATCHES"}};
  AnsweringPhone phone;
  phone.driver.waitOf = [](const std::string&) { return XCTWaiterResult::timedOut; };
  for (const Row& row : ROWS) {
    const std::string wait = " s for existence: the element (single) of the descendants, matching " + row.attribute +
                             " " + row.comparison + " \"a\" of " + APP_IN_WORDS;
    const std::string tap = "tap: " + textElementInWords(row.comparison, "a");
    EXPECT_THAT(phone.actionsOf({row.command, "a"}), ElementsAre("wait 10" + wait, tap));
    EXPECT_THAT(phone.actionsOf({row.command, "a", "false"}), ElementsAre("wait 10" + wait, tap));
    EXPECT_THAT(phone.actionsOf({row.command, "a", "true"}), ElementsAre("wait 2" + wait));
  }
}

TEST(CommandTable, SearchesRememberWhatTheyFind) {
  testing::TestPlatform platform(R"(
    <XCUIElementTypeButton label="a one" x="0" y="0" width="100" height="20"/>
    <XCUIElementTypeButton label="a" x="0" y="20" width="100" height="20"/>
    <XCUIElementTypeButton label="a off" enabled="false" x="0" y="40" width="100" height="20"/>
    <XCUIElementTypeImage label="a" x="0" y="60" width="100" height="20"/>)");
  run({"applicationStart", "com.example.test"});
  struct Row {
    std::vector<std::string_view> fields;
    double top;
  };
  const Row ROWS[] = {{{"findByText", "A"}, 0},
                      {{"findByText", "A", "3"}, 60},
                      {{"findByText", "A", "1", "false"}, 40},
                      {{"findByTextExact", "a"}, 20},
                      {{"findByTextExact", "a", "2", "true", ""}, 60},
                      {{"findByClass", "Image"}, 60},
                      {{"findByClass", "Button", "2"}, 20},
                      {{"findByClass", "Button", "1", "false"}, 40}};
  for (const auto& [fields, top] : ROWS) {
    run(fields);
    EXPECT_EQ(Find::lastElementFound->frame().origin.y, top) << fields[0];
  }
  EXPECT_THAT([] { run({"findByTextExact", "A"}); }, testing::raisesFdslError("The expected text A was not found"));
}

TEST(CommandTable, AScriptOfThem) {
  testing::TestPlatform platform(R"(
    <XCUIElementTypeStaticText label="Welcome" x="0" y="0" width="100" height="20"/>
    <XCUIElementTypeTextField name="name" value="Ada" x="0" y="20" width="100" height="20"/>
    <XCUIElementTypeButton label="Go" x="0" y="40" width="100" height="20"/>)",
                                 R"([{"on": "tap", "element": "label == 'Go'",
                                      "do": [{"open": "com.apple.springboard"}]}])");
  quobrakUITests test;
  EXPECT_THAT(
      [&] {
        test.executeActions(
            "applicationStart,com.example.test\n"
            "waitUntilText,welcome\n"
            "waitUntilGoneTextExact,Loading.*,5000\n"
            "setTextByText, L.,NAME\n"
            "waitUntilTextBeforeClick,Later,true\n"
            "findByClass,Button\n"
            "clickOnLastElementFound\n"
            "waitUntilGoneText,Welcome,3000");
      },
      testing::raisesFdslError("Error on line waitUntilGoneText,Welcome,3000 (line: 8). Cause: Not expected element "
                               "was found Welcome"));
  EXPECT_TRUE(platform.phone().isInFront("com.apple.springboard"));
  // The start, the tap that was optional, and the wait that failed.
  EXPECT_EQ(platform.elapsed(), milliseconds(500 + 2000 + 3000));
}

TEST(CommandTable, FewerThanOneSwipeToATextIsFatal) {
  AnsweringPhone phone;
  EXPECT_DEATH(run({"swipeDownwardToText", "a", "0"}),
               Eq("Fatal error: Range requires lowerBound <= upperBound: maxSwipe is 0, but must be at least 1\n"));
  EXPECT_DEATH(run({"swipeUpwardToText", "a", "-1"}),
               Eq("Fatal error: Range requires lowerBound <= upperBound: maxSwipe is -1, but must be at least 1\n"));
}

/// The fields of a line in which all arguments will do.
std::vector<std::string_view> goodFieldsFor(const CommandRow& row) {
  std::vector<std::string_view> fields{row.name};
  for (const ArgumentInfo& argument : row.arguments()) {
    const bool isTruth = argument.unit == Unit::truthValue;
    fields.push_back(isTruth ? "true" : (argument.meaning == Meaning::className ? "Button" : "1"));
  }
  return fields;
}

/// What the command raises where no application has been started; empty where it raises nothing.
std::string raisedWithoutApplication(const CommandRow& row) {
  const std::vector<std::string_view> fields = goodFieldsFor(row);
  try {
    row.run(fields);
  } catch (const std::exception& error) {
    return error.what();
  }
  return "";
}

TEST(CommandTable, TellsWhichCommandsNeedAnApplication) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("");
  std::size_t needy = 0;
  for (const CommandRow& row : commandTable()) {
    // What needs more than an application stops the process here, and what starts one would help the others.
    const bool stops = row.effects.stopWithoutApplication != nullptr || row.effects.step == CommandEffects::Step::ended;
    if (stops || row.effects.application == CommandEffects::Application::started) {
      continue;
    }
    const bool isNeedy = row.effects.application == CommandEffects::Application::needed;
    EXPECT_EQ(raisedWithoutApplication(row) == TestContext::NO_APPLICATION, isNeedy) << row.name;
    needy += isNeedy ? 1U : 0U;
  }
  EXPECT_EQ(needy, 36U);
}

TEST(CommandTable, TellsWhichCommandsStopTheProcessWithoutAnApplication) {
  testing::TestPlatform platform;
  TestContext::shared().setTestingApp("");
  for (const CommandRow& row : commandTable()) {
    if (row.effects.stopWithoutApplication != nullptr) {
      const std::vector<std::string_view> fields = goodFieldsFor(row);
      EXPECT_DEATH(
          row.run(fields),
          Eq("Fatal error: " + row.effects.stopWithoutApplication(fields, TestContext::NO_APPLICATION) + "\n"));
    }
  }
}

TEST(CommandTable, TellsWhichCommandsStartAnApplication) {
  for (const CommandRow& row : commandTable()) {
    testing::TestPlatform platform;
    TestContext::shared().setTestingApp("");
    const bool stops = row.effects.stopWithoutApplication != nullptr || row.effects.step == CommandEffects::Step::ended;
    if (!stops) {
      // On this phone the launch may fail; the application has been chosen by then.
      raisedWithoutApplication(row);
      const bool starts = row.effects.application == CommandEffects::Application::started;
      if (starts) {
        EXPECT_NO_THROW(TestContext::shared().getTestingApp()) << row.name;
      } else {
        EXPECT_THROW(TestContext::shared().getTestingApp(), FWKTError) << row.name;
      }
    }
  }
}

/// Arguments that will do have no fault, whatever the command minds.
TEST(CommandTable, MindsNoGoodArgument) {
  for (const CommandRow& row : commandTable()) {
    const std::vector<std::string_view> fields = goodFieldsFor(row);
    for (const ArgumentInfo& argument : row.arguments()) {
      if (argument.fault != nullptr) {
        EXPECT_EQ(argument.fault(fields, argument.field), std::nullopt) << row.name << " " << argument.label;
      }
    }
  }
}

}  // namespace
}  // namespace quobrak
