#include "quobrakUITests/quobrakUITests.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/Application.h"
#include "tests/quobrakUITests/Environment.h"
#include "tests/quobrakUITests/ForgettingDriver.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/quobrakUITests/RecordedCommands.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using testing::Command;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::IsEmpty;
using ::testing::Not;
using testing::RecordedCommands;
using testing::setVariable;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;
using testing::unsetVariable;

constexpr const char* MONITOR_ADDED = "addInterruptionMonitor: Permission Alert";
constexpr const char* MONITOR_REMOVED = "removeInterruptionMonitor";
/// Not under any button of an alert.
constexpr const char* GO = R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)";

/// The environment of a run of that one command.
void setCommand(const std::string& command) {
  setVariable("class", "dslCommandTest");
  setVariable("command", command);
}

TEST(QuobrakUITests, SetUpStopsATestAtItsFirstFailure) {
  quobrakUITests test;
  EXPECT_TRUE(test.continueAfterFailure());
  test.setUpWithError();
  EXPECT_FALSE(test.continueAfterFailure());
  test.tearDownWithError();
  EXPECT_FALSE(test.continueAfterFailure());
  EXPECT_THAT(test.testStatus(), IsEmpty());
}

TEST(QuobrakUITests, ClassThatIsNotSet) {
  testing::TestPlatform platform;
  unsetVariable("class");
  quobrakUITests test;
  EXPECT_THAT([&] { test.testMain(); }, testing::raisesEnvVariableError("The class is not set"));
  EXPECT_THAT(platform.driver().operations, ElementsAre(MONITOR_ADDED));
}

TEST(QuobrakUITests, ClassesThatAreNotSupported) {
  testing::TestPlatform platform;
  setVariable("command", "pause,1");
  quobrakUITests test;
  for (const std::string kind :
       {"", "dslcommandtest", "DslCommandTest", "dslCommandTest ", "dslCommand", "dslTestsSuite", "testMain"}) {
    setVariable("class", kind);
    platform.driver().operations.clear();
    EXPECT_THAT([&] { test.testMain(); }, testing::raisesEnvVariableError("The class is not supported"));
    EXPECT_THAT(platform.driver().operations, ElementsAre(MONITOR_ADDED));
  }
  EXPECT_EQ(platform.elapsed(), std::chrono::seconds(0));
}

TEST(QuobrakUITests, CommandThatIsNotSet) {
  testing::TestPlatform platform;
  setVariable("class", "dslCommandTest");
  unsetVariable("command");
  quobrakUITests test;
  EXPECT_THAT([&] { test.testMain(); }, testing::raisesEnvVariableError("The command is not set"));
  EXPECT_THAT(platform.driver().operations, ElementsAre(MONITOR_ADDED));
}

TEST(QuobrakUITests, CommandIsSplitAtCommasAndNothingElseIsDoneToIt) {
  struct Row {
    std::string command;
    Command fields;
  };
  const Row ROWS[] = {
      {"pause,10000", {"pause", "10000"}}, {"", {""}},     {" pause , 1,,", {" pause ", " 1", "", ""}},
      {"a,${HOME}", {"a", "${HOME}"}},     {"#a", {"#a"}}, {"a\nb,c", {"a\nb", "c"}},
      {"a,\xFF", {"a", "\uFFFD"}},
  };
  testing::TestPlatform platform;
  for (const auto& [command, fields] : ROWS) {
    setCommand(command);
    RecordedCommands test;
    test.testMain();
    EXPECT_THAT(test.commands, ElementsAre(fields));
  }
}

TEST(QuobrakUITests, CommandRunsBetweenTheMonitorsComingAndGoing) {
  testing::TestPlatform platform;
  setCommand("pressHome");
  quobrakUITests test;
  test.testMain();
  EXPECT_THAT(platform.driver().operations, ElementsAre(MONITOR_ADDED, "pressButton: home", MONITOR_REMOVED));
  EXPECT_THAT(platform.documents().files(), IsEmpty());
  EXPECT_THAT(test.testStatus(), IsEmpty());
}

TEST(QuobrakUITests, PauseAsACommand) {
  testing::TestPlatform platform;
  setCommand("pause,10000");
  quobrakUITests test;
  test.testMain();
  EXPECT_EQ(platform.elapsed(), std::chrono::seconds(10));
}

TEST(QuobrakUITests, ErrorOfACommandPassesUnchangedAndLeavesTheMonitor) {
  testing::TestPlatform platform;
  quobrakUITests test;
  setCommand("");
  EXPECT_THAT([&] { test.testMain(); }, testing::raisesFdslError("Function  is not implemented"));
  setCommand("pause,x");
  EXPECT_THAT([&] { test.testMain(); }, testing::raisesFdslError("The pause duration x should be a positive integer"));
  setCommand("clickByText,Go");
  EXPECT_THAT([&] { test.testMain(); }, testing::raisesNotInitialised());
  EXPECT_THAT(platform.driver().operations, Not(Contains(StartsWith(MONITOR_REMOVED))));
}

TEST(QuobrakUITests, OtherErrorsPassUnchangedToo) {
  testing::TestPlatform platform;
  RecordedCommands test;
  setCommand("a");
  test.meanwhile = [](const Command&) { throw UIAutomationError("The phone is gone."); };
  EXPECT_THAT([&] { test.testMain(); }, ThrowsMessage<UIAutomationError>("The phone is gone."));
  test.meanwhile = [](const Command&) { throw std::runtime_error("The battery is empty."); };
  EXPECT_THAT([&] { test.testMain(); }, ThrowsMessage<std::runtime_error>("The battery is empty."));
  EXPECT_THAT(platform.driver().operations, ElementsAre(MONITOR_ADDED, MONITOR_ADDED));
}

TEST(QuobrakUITests, CommandWithAMissingFieldIsFatal) {
  testing::TestPlatform platform;
  setCommand("clickByText");
  quobrakUITests test;
  EXPECT_DEATH(test.testMain(), Eq("Fatal error: Index out of range: the field 1 (selector) is missing\n"));
}

TEST(QuobrakUITests, ExecutedCommandMustHaveAName) {
  testing::TestPlatform platform;
  quobrakUITests test;
  EXPECT_DEATH(test.executeCommand({}), Eq("Fatal error: Index out of range: a command without fields\n"));
}

TEST(QuobrakUITests, CommandBeginsWithoutTheLookUpsOfTheOneBefore) {
  auto installed = std::make_unique<testing::ForgettingDriver>();
  const testing::ForgettingDriver& driver = *installed;
  UIDriver::install(std::move(installed));
  quobrakUITests test;
  EXPECT_THROW(test.executeActions("nope"), FWKTError);
  EXPECT_EQ(driver.timesForgotten, 1);
}

TEST(QuobrakUITests, ReferenceRun) {
  testing::TestPlatform platform;
  setVariable("class", "dslTestReference");
  setVariable("iteration", "2");
  Application::applicationStart("com.example.test");
  RecordedCommands test;
  test.testMain();
  EXPECT_THAT(test.commands, ElementsAre(Command{"pause", "10000"}, Command{"measureStart", "HomeReference"},
                                         Command{"pause", "30000"}, Command{"measureStop"},
                                         Command{"browserPrepareAndOpenForReference"},
                                         Command{"measureStart", "SafariReference"}, Command{"pause", "30000"},
                                         Command{"measureStop"}, Command{"applicationKill", "com.apple.mobilesafari"}));
  EXPECT_THAT(test.testStatus(), ElementsAre(TestStatus{.status = "success", .stackTrace = ""}));
  EXPECT_THAT(
      platform.documents().files(),
      ElementsAre("tests-results/TestReference/LaunchTest/iteration2/dump/dump.txt",
                  "tests-results/TestReference/LaunchTest/iteration2/screenshots/001_success.png", "testsStatus.json"));
  EXPECT_EQ(platform.driver().operations.back(), MONITOR_REMOVED);
}

TEST(QuobrakUITests, SuitesRun) {
  testing::TestPlatform platform;
  platform.documents().write("scripts/login.txt", "a\nb,c");
  setVariable("class", "dslTestsSuites");
  setVariable("iteration", "1");
  setVariable("testFileNumber", "1");
  setVariable("testFileSuiteName1", "Suite");
  setVariable("testFilePath1", "scripts/login.txt");
  Application::applicationStart("com.example.test");
  RecordedCommands test;
  test.testMain();
  EXPECT_THAT(test.commands, ElementsAre(Command{"a"}, Command{"b", "c"}));
  EXPECT_THAT(platform.documents().files(),
              ElementsAre("scripts/login.txt", "tests-results/Suite/login/iteration1/dump/dump.txt",
                          "tests-results/Suite/login/iteration1/screenshots/001_success.png", "testsStatus.json"));
  EXPECT_EQ(platform.driver().operations.back(), MONITOR_REMOVED);
}

TEST(QuobrakUITests, ErrorsOfRunsPassUnchangedAndLeaveTheMonitor) {
  testing::TestPlatform platform;
  unsetVariable("iteration");
  quobrakUITests test;
  setVariable("class", "dslTestReference");
  EXPECT_THAT([&] { test.testMain(); }, testing::raisesEnvVariableError("The iteration is not set"));
  setVariable("class", "dslTestsSuites");
  EXPECT_THAT([&] { test.testMain(); }, testing::raisesEnvVariableError("The iteration is not set"));
  setVariable("iteration", "1");
  setVariable("class", "dslTestReference");
  platform.files().before = [](std::string_view, const std::string&) { throw FileManagerError("The disk is full."); };
  EXPECT_THAT([&] { test.testMain(); }, testing::raisesDocumentDirectoryError("The disk is full."));
  EXPECT_THAT(platform.driver().operations, Not(Contains(MONITOR_REMOVED)));
}

/// A rule that raises the alert as soon as the application is started.
std::string onLaunch(const std::string& effect) {
  return R"([{"on": "launch", "do": [)" + effect + "]}]";
}

/// Taps "Go" with an alert up, as the one command of a run, and gives the labels by which buttons were tapped.
std::vector<std::string> buttonsTappedMeanwhile(testing::TestPlatform& platform) {
  Application::applicationStart("com.example.test");
  platform.driver().operations.clear();
  setCommand("clickByText,Go");
  quobrakUITests test;
  test.testMain();
  std::vector<std::string> labels;
  for (const std::string& operation : platform.driver().operations) {
    const std::string before = "tap: the element (single) of the Button descendants, keyed \"";
    if (operation.starts_with(before)) {
      labels.push_back(operation.substr(before.size(), operation.find('"', before.size()) - before.size()));
    }
  }
  return labels;
}

/// The permission handler answers true: a handler that was registered before it is not asked.
bool isLeftToEarlierHandlers(testing::TestPlatform& platform) {
  bool isAsked = false;
  quobrakUITests other;
  other.addUIInterruptionMonitor("Earlier", [&isAsked](const XCUIElement&) {
    isAsked = true;
    return false;
  });
  buttonsTappedMeanwhile(platform);
  return isAsked;
}

TEST(PermissionAlert, Location) {
  testing::TestPlatform platform(GO, onLaunch(R"({"askPermission": "location"})"));
  EXPECT_THAT(buttonsTappedMeanwhile(platform), ElementsAre("Allow Once"));
  EXPECT_EQ(platform.phone().alert(), nullptr);
}

TEST(PermissionAlert, LocationIsAnsweredAllowOnceWhereThereIsAnAllow) {
  testing::TestPlatform platform(GO, onLaunch(R"({"systemAlert": {"title": "Allow to use your location?",
                                                            "buttons": ["Allow", "Allow Once", "OK"]}})"));
  EXPECT_THAT(buttonsTappedMeanwhile(platform), ElementsAre("Allow Once"));
}

TEST(PermissionAlert, Camera) {
  testing::TestPlatform platform(GO, onLaunch(R"({"askPermission": "camera"})"));
  EXPECT_THAT(buttonsTappedMeanwhile(platform), ElementsAre("OK"));
  EXPECT_EQ(platform.phone().alert(), nullptr);
}

TEST(PermissionAlert, Notifications) {
  testing::TestPlatform platform(GO, onLaunch(R"({"askPermission": "notifications"})"));
  EXPECT_THAT(buttonsTappedMeanwhile(platform), ElementsAre("Allow"));
  EXPECT_EQ(platform.phone().alert(), nullptr);
}

TEST(PermissionAlert, Tracking) {
  testing::TestPlatform platform(GO, onLaunch(R"({"askPermission": "tracking"})"));
  EXPECT_THAT(buttonsTappedMeanwhile(platform), ElementsAre("Allow"));
  EXPECT_EQ(platform.phone().alert(), nullptr);
}

TEST(PermissionAlert, TrackingWithAStraightApostropheIsLeftAlone) {
  testing::TestPlatform platform(
      GO,
      onLaunch(R"({"systemAlert": {"title": "Allow to track your activity across other companies' apps and websites?",
                                 "buttons": ["Allow", "OK"]}})"));
  EXPECT_THAT(buttonsTappedMeanwhile(platform), IsEmpty());
  EXPECT_NE(platform.phone().alert(), nullptr);
}

TEST(PermissionAlert, UnknownAlertIsLeftAlone) {
  testing::TestPlatform platform(GO, onLaunch(R"({"systemAlert": {"title": "Low battery", "message": "10 percent left",
                                                            "buttons": ["Allow", "OK"]}})"));
  EXPECT_TRUE(isLeftToEarlierHandlers(platform));
  EXPECT_NE(platform.phone().alert(), nullptr);
  EXPECT_THAT(platform.driver().operations,
              Not(Contains(StartsWith("tap: the element (single) of the Button descendants"))));
}

TEST(PermissionAlert, ButtonsTextsDoNotMakeAnAlertKnown) {
  testing::TestPlatform platform(GO, onLaunch(R"({"systemAlert": {"title": "Low battery",
                                                            "buttons": ["To access the camera", "OK"]}})"));
  EXPECT_TRUE(isLeftToEarlierHandlers(platform));
}

class AskedPermission : public ::testing::TestWithParam<const char*> {};

TEST_P(AskedPermission, IsNotLeftToEarlierHandlers) {
  testing::TestPlatform platform(GO, onLaunch(R"({"askPermission": ")" + std::string(GetParam()) + R"("})"));
  EXPECT_FALSE(isLeftToEarlierHandlers(platform));
  EXPECT_EQ(platform.phone().alert(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(PermissionAlert, AskedPermission,
                         ::testing::Values("location", "camera", "notifications", "tracking"));

TEST(PermissionAlert, MessageCountsAsWellAsTheTitle) {
  testing::TestPlatform platform(GO,
                                 onLaunch(R"({"systemAlert": {"title": "Test", "message": "Wants TO ACCESS THE CAMERA.",
                                                            "buttons": ["OK"]}})"));
  EXPECT_THAT(buttonsTappedMeanwhile(platform), ElementsAre("OK"));
}

constexpr const char* LOCATION = "to use your location?";
constexpr const char* CAMERA = "to access the camera";
constexpr const char* NOTIFICATIONS = "to send you notifications";
constexpr const char* TRACKING = "to track your activity across other companies’ apps and websites";

/// An alert with two of the texts.
struct AmbiguousAlert {
  std::string name;
  std::string title;
  std::string message;
  std::string answer;
};

void PrintTo(const AmbiguousAlert& alert, std::ostream* stream) {
  *stream << alert.name;
}

class AlertWithTwoOfTheTexts : public ::testing::TestWithParam<AmbiguousAlert> {};

TEST_P(AlertWithTwoOfTheTexts, IsAnsweredByTheFirstInOrder) {
  testing::TestPlatform platform(
      GO, onLaunch(R"({"systemAlert": {"title": ")" + GetParam().title + R"(", "message": ")" + GetParam().message +
                   R"(", "buttons": ["OK", "Allow", "Allow Once"]}})"));
  EXPECT_THAT(buttonsTappedMeanwhile(platform), ElementsAre(GetParam().answer));
}

INSTANTIATE_TEST_SUITE_P(
    PermissionAlert, AlertWithTwoOfTheTexts,
    ::testing::Values(AmbiguousAlert{"Camera then location", CAMERA, LOCATION, "Allow Once"},
                      AmbiguousAlert{"Notifications then location", NOTIFICATIONS, LOCATION, "Allow Once"},
                      AmbiguousAlert{"Tracking then location", TRACKING, LOCATION, "Allow Once"},
                      AmbiguousAlert{"Location then camera", LOCATION, CAMERA, "Allow Once"},
                      AmbiguousAlert{"Notifications then camera", NOTIFICATIONS, CAMERA, "OK"},
                      AmbiguousAlert{"Tracking then camera", TRACKING, CAMERA, "OK"},
                      AmbiguousAlert{"Tracking then notifications", TRACKING, NOTIFICATIONS, "Allow"}));

TEST(PermissionAlert, TextsAreAskedForInTheirOrder) {
  testing::TestPlatform platform(GO, onLaunch(R"({"systemAlert": {"title": "Unknown", "buttons": ["OK"]}})"));
  buttonsTappedMeanwhile(platform);
  std::vector<std::string> questions;
  for (const std::string& operation : platform.driver().operations) {
    if (operation.starts_with("exists: ")) {
      questions.push_back(operation);
    }
  }
  const std::string before =
      R"(exists: the element (first) of the StaticText descendants, matching label CONTAINS[c] ")";
  const std::string after = R"(" of the system alert "Unknown")";
  EXPECT_THAT(questions, ElementsAre(before + LOCATION + after, before + CAMERA + after, before + NOTIFICATIONS + after,
                                     before + TRACKING + after));
}

TEST(PermissionAlert, ButtonThatIsNotThereIsTappedAllTheSame) {
  testing::TestPlatform platform(
      GO, onLaunch(R"({"systemAlert": {"title": "Test wants to use your location?", "buttons": ["Allow"]}})"));
  Application::applicationStart("com.example.test");
  setCommand("clickByText,Go");
  quobrakUITests test;
  EXPECT_THAT([&] { test.testMain(); },
              ThrowsMessage<UIAutomationError>(
                  "tap of the element (single) of the Button descendants, keyed \"Allow Once\" of the system alert "
                  "\"Test wants to use your location?\" on the simulated phone: it does not exist"));
  EXPECT_NE(platform.phone().alert(), nullptr);
}

TEST(PermissionAlert, IsNotAnsweredAfterTheRun) {
  testing::TestPlatform platform(GO, onLaunch(R"({"askPermission": "location"})"));
  setCommand("pause,1");
  quobrakUITests test;
  test.testMain();
  Application::applicationStart("com.example.test");
  test.executeActions("clickByText,Go");
  EXPECT_NE(platform.phone().alert(), nullptr);
}

TEST(PermissionAlert, IsStillAnsweredAfterARunThatFailed) {
  testing::TestPlatform platform(GO, onLaunch(R"({"askPermission": "location"})"));
  unsetVariable("class");
  quobrakUITests test;
  EXPECT_THROW(test.testMain(), FWKTError);
  Application::applicationStart("com.example.test");
  test.executeActions("clickByText,Go");
  EXPECT_EQ(platform.phone().alert(), nullptr);
}

}  // namespace
}  // namespace quobrak
