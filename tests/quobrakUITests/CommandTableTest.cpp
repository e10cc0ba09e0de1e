#include "quobrakUITests/CommandTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/CommandDispatch.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::ThrowsMessage;

constexpr const char* GO = R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)";

void run(const std::vector<std::string_view>& fields) {
  dispatchCommand(commandTable(), fields);
}

std::vector<std::string_view> namesIn(std::span<const CommandRow> table) {
  std::vector<std::string_view> names;
  for (const CommandRow& row : table) {
    names.push_back(row.name);
  }
  return names;
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

TEST(CommandTable, NamesInOrder) {
  EXPECT_THAT(namesIn(commandTable()),
              ElementsAre("applicationStart", "applicationKill", "clickByText", "measureStart", "measureStop", "pause",
                          "pressHome", "pressVolumeUp", "pressVolumeDown"));
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

TEST(CommandTable, MissingFieldThatIsReadDirectlyIsFatal) {
  struct Row {
    std::string_view command;
    std::string_view argument;
  };
  constexpr Row ROWS[] = {{"applicationStart", "bundleId"},
                          {"applicationKill", "bundleId"},
                          {"clickByText", "selector"},
                          {"measureStart", "stepName"}};
  testing::TestPlatform platform;
  for (const auto& [command, argument] : ROWS) {
    EXPECT_DEATH(run({command}),
                 Eq("Fatal error: Index out of range: the field 1 (" + std::string(argument) + ") is missing\n"));
  }
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

TEST(CommandTable, ArgumentsOfEachCommand) {
  struct Row {
    std::string_view command;
    std::string_view label;
    Unit unit;
  };
  constexpr Row ROWS[] = {{"applicationStart", "bundleId", Unit::text},
                          {"applicationKill", "bundleId", Unit::text},
                          {"clickByText", "selector", Unit::text},
                          {"measureStart", "stepName", Unit::text},
                          {"pause", "timeMillis", Unit::milliseconds}};
  std::size_t rowsWithArguments = 0;
  for (const CommandRow& row : commandTable()) {
    if (row.arguments().empty()) {
      continue;
    }
    ASSERT_LT(rowsWithArguments, std::size(ROWS)) << row.name;
    const Row& expected = ROWS[rowsWithArguments++];
    EXPECT_EQ(row.name, expected.command);
    ASSERT_EQ(row.arguments().size(), 1U) << row.name;
    EXPECT_EQ(row.arguments()[0].field, 1U) << row.name;
    EXPECT_EQ(row.arguments()[0].label, expected.label);
    EXPECT_EQ(row.arguments()[0].unit, expected.unit) << row.name;
    EXPECT_EQ(row.arguments()[0].defaultValue, ArgumentDefault()) << row.name;
  }
  EXPECT_EQ(rowsWithArguments, std::size(ROWS));
}

}  // namespace
}  // namespace quobrak
