#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/Application.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/quobrakUITests.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/quobrakUITests/RecordedCommands.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using testing::Command;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::RecordedCommands;
using ::testing::StartsWith;

constexpr const char* NOT_INITIALISED =
    "The application is not initialised. Please use applicationStart or launchBrowser at the beginning of your script.";
constexpr const char* UNKNOWN_SCRIPT_ERROR = "An unknown error occured while executing actions";
constexpr const char* UNKNOWN_PICTURE_ERROR = "An unknown error occured while taking screenshots and dump";
constexpr const char* HOME_PRESSED = "pressButton: home";

/// Runs one script and gives its status.
TestStatus statusOf(quobrakUITests& test, const std::string& script) {
  test.launchTest({{.script = script, .iterationPath = "r"}});
  EXPECT_EQ(test.testStatus().size(), 1U);
  return test.testStatus().at(0);
}

void failAtWritesOf(testing::TestPlatform& platform, const std::string& part) {
  platform.files().before = [part](std::string_view operation, const std::string& path) {
    if (operation == "write" && path.find(part) != std::string::npos) {
      throw FileManagerError("The disk is full.");
    }
  };
}

TEST(IterationRunner, ScriptThatSucceeds) {
  testing::TestPlatform platform;
  quobrakUITests test;
  EXPECT_EQ(statusOf(test, "applicationStart,com.example.test"), (TestStatus{.status = "success", .stackTrace = ""}));
  EXPECT_THAT(platform.documents().files(),
              ElementsAre("r/dump/dump.txt", "r/screenshots/001_success.png", "testsStatus.json"));
  EXPECT_EQ(platform.documents().read("testsStatus.json"), R"([{"stackTrace":"","status":"success"}])");
  EXPECT_THAT(platform.driver().operations,
              ElementsAre("launch: com.example.test", "screenshot",
                          "debugDescription: the application \"com.example.test\"", HOME_PRESSED));
}

TEST(IterationRunner, FailingScriptDoesNotStopTheRun) {
  testing::TestPlatform platform;
  quobrakUITests test;
  test.launchTest({{.script = "applicationStart,com.example.test\n\nnope\npressHome", .iterationPath = "a"},
                   {.script = "pause,1", .iterationPath = "b"}});
  EXPECT_THAT(test.testStatus(),
              ElementsAre(TestStatus{.status = "failed",
                                     .stackTrace = "Error on line nope (line: 3). Cause: Function nope is not "
                                                   "implemented"},
                          TestStatus{.status = "success", .stackTrace = ""}));
  EXPECT_THAT(platform.documents().files(),
              ElementsAre("a/dump/dump.txt", "a/screenshots/001_failed.png", "b/dump/dump.txt",
                          "b/screenshots/001_success.png", "testsStatus.json"));
  EXPECT_EQ(platform.documents().read("testsStatus.json"),
            R"([{"stackTrace":"Error on line nope (line: 3). Cause: Function nope is not implemented",)"
            R"("status":"failed"},{"stackTrace":"","status":"success"}])");
  EXPECT_EQ(platform.driver().operations.back(), HOME_PRESSED);
  EXPECT_EQ(std::count(platform.driver().operations.begin(), platform.driver().operations.end(), HOME_PRESSED), 1);
}

TEST(IterationRunner, ReasonOfEachKindOfError) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  RecordedCommands test;
  test.meanwhile = [](const Command& command) {
    if (command.front() == "variable") {
      throw FWKTError::envVariableError("The class is not set");
    }
    if (command.front() == "directory") {
      throw FWKTError::documentDirectoryError("The disk is full.");
    }
    if (command.front() == "script") {
      throw FWKTError::fdslError("A coordinate is missing");
    }
    if (command.front() == "driver") {
      throw UIAutomationError("The phone is gone.");
    }
    throw std::runtime_error("The battery is empty.");
  };
  test.launchTest({{.script = "variable", .iterationPath = "r"},
                   {.script = "directory", .iterationPath = "r"},
                   {.script = "script", .iterationPath = "r"},
                   {.script = "driver", .iterationPath = "r"},
                   {.script = "battery", .iterationPath = "r"}});
  EXPECT_THAT(test.testStatus(),
              ElementsAre(TestStatus{.status = "failed", .stackTrace = "The class is not set"},
                          TestStatus{.status = "failed", .stackTrace = "The disk is full."},
                          TestStatus{.status = "failed",
                                     .stackTrace = "Error on line script (line: 1). Cause: A coordinate is missing"},
                          TestStatus{.status = "failed", .stackTrace = UNKNOWN_SCRIPT_ERROR},
                          TestStatus{.status = "failed", .stackTrace = UNKNOWN_SCRIPT_ERROR}));
}

TEST(IterationRunner, MissingVariableFailsItsScriptAlone) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  RecordedCommands test;
  test.launchTest({{.script = "a,${QUOBRAK_UNSET}", .iterationPath = "r"}, {.script = "b", .iterationPath = "r"}});
  EXPECT_THAT(test.testStatus(),
              ElementsAre(TestStatus{.status = "failed",
                                     .stackTrace = "Error on line a,${QUOBRAK_UNSET} (line: 1). Cause: You need to "
                                                   "pass the extra parameter QUOBRAK_UNSET to your test"},
                          TestStatus{.status = "success", .stackTrace = ""}));
}

TEST(IterationRunner, ScreenshotNumberAndPathAreThoseOfTheScript) {
  testing::TestPlatform platform;
  quobrakUITests test;
  test.launchTest({{.script = "applicationStart,com.example.test\nmeasureStart,A\nmeasureStop", .iterationPath = "a"},
                   {.script = "measureStart,B", .iterationPath = "b"}});
  EXPECT_THAT(
      platform.documents().files(),
      ElementsAre("a/dump/dump.txt", "a/screenshots/001_A_start.png", "a/screenshots/002_A_stop.png",
                  "a/screenshots/003_success.png", "b/dump/dump.txt", "b/screenshots/001_B_start.png",
                  "b/screenshots/002_success.png", "measures/fernwick--A-1700000000500.json", "testsStatus.json"));
  EXPECT_EQ(TestContext::shared().getIterationPath(), "b");
  EXPECT_EQ(TestContext::shared().getTestResults().size(), 1U);
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
}

TEST(IterationRunner, PictureThatCannotBeWrittenLeavesASuccessASuccess) {
  testing::TestPlatform platform;
  failAtWritesOf(platform, "/screenshots/");
  quobrakUITests test;
  EXPECT_EQ(statusOf(test, "applicationStart,com.example.test"),
            (TestStatus{.status = "success", .stackTrace = "The disk is full."}));
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test", "screenshot", HOME_PRESSED));
  EXPECT_THAT(platform.documents().files(), ElementsAre("testsStatus.json"));
}

TEST(IterationRunner, PictureThatCannotBeWrittenReplacesTheReasonOfAFailure) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  failAtWritesOf(platform, "/screenshots/");
  quobrakUITests test;
  EXPECT_EQ(statusOf(test, "nope"), (TestStatus{.status = "failed", .stackTrace = "The disk is full."}));
}

TEST(IterationRunner, DumpThatFails) {
  testing::TestPlatform platform;
  quobrakUITests test;
  EXPECT_EQ(statusOf(test, "pause,1"), (TestStatus{.status = "success", .stackTrace = NOT_INITIALISED}));
  EXPECT_THAT(platform.documents().files(), ElementsAre("r/screenshots/001_success.png", "testsStatus.json"));
  Application::applicationStart("com.example.test");
  failAtWritesOf(platform, "/dump/");
  quobrakUITests another;
  EXPECT_EQ(statusOf(another, "pause,1"), (TestStatus{.status = "success", .stackTrace = "The disk is full."}));
}

TEST(IterationRunner, OtherErrorsWhileTakingThePicture) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  platform.driver().before = [](std::string_view name, const std::string&) {
    if (name == "screenshot") {
      throw UIAutomationError("The phone is gone.");
    }
  };
  quobrakUITests test;
  test.launchTest({{.script = "pause,1", .iterationPath = "r"}, {.script = "nope", .iterationPath = "r"}});
  EXPECT_THAT(test.testStatus(), ElementsAre(TestStatus{.status = "success", .stackTrace = UNKNOWN_PICTURE_ERROR},
                                             TestStatus{.status = "failed", .stackTrace = UNKNOWN_PICTURE_ERROR}));
  EXPECT_THAT(platform.documents().files(), ElementsAre("testsStatus.json"));
}

TEST(IterationRunner, OtherErrorsWhileDumping) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  platform.driver().before = [](std::string_view name, const std::string&) {
    if (name == "debugDescription") {
      throw std::runtime_error("The battery is empty.");
    }
  };
  quobrakUITests test;
  EXPECT_EQ(statusOf(test, "pause,1"), (TestStatus{.status = "success", .stackTrace = UNKNOWN_PICTURE_ERROR}));
  EXPECT_THAT(platform.documents().files(), ElementsAre("r/screenshots/001_success.png", "testsStatus.json"));
}

TEST(IterationRunner, ErrorOfAVariableWhileTakingThePictureIsAnUnknownOne) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  platform.driver().before = [](std::string_view name, const std::string&) {
    if (name == "screenshot") {
      throw FWKTError::envVariableError("The class is not set");
    }
  };
  quobrakUITests test;
  EXPECT_EQ(statusOf(test, "pause,1"), (TestStatus{.status = "success", .stackTrace = UNKNOWN_PICTURE_ERROR}));
}

TEST(IterationRunner, FirstIterationClearsTheResultsOfEarlierRuns) {
  testing::TestPlatform platform;
  platform.documents().write("tests-results/old/dump/dump.txt", "");
  platform.documents().write("measures/old.json", "");
  quobrakUITests test;
  test.launchTest({});
  EXPECT_THAT(platform.documents().files(), ElementsAre("testsStatus.json"));
}

TEST(IterationRunner, LaterIterationsKeepTheResultsOfEarlierOnes) {
  testing::TestPlatform platform;
  platform.documents().write("tests-results/old/dump/dump.txt", "");
  platform.documents().write("measures/old.json", "");
  TestContext::shared().setIteration(2);
  quobrakUITests test;
  test.launchTest({});
  EXPECT_THAT(platform.documents().files(), ElementsAre("tests-results/old/dump/dump.txt", "testsStatus.json"));
}

TEST(IterationRunner, EmptyListWritesItsResultAndPressesHome) {
  testing::TestPlatform platform;
  platform.documents().write("measures/old.json", "");
  quobrakUITests test;
  test.launchTest({});
  EXPECT_THAT(test.testStatus(), IsEmpty());
  EXPECT_THAT(platform.documents().files(), ElementsAre("testsStatus.json"));
  EXPECT_EQ(platform.documents().read("testsStatus.json"), "[]");
  EXPECT_THAT(platform.driver().operations, ElementsAre(HOME_PRESSED));
}

TEST(IterationRunner, NothingIsRunWhereTheDocumentsCannotBeCleared) {
  testing::TestPlatform platform;
  platform.documents().write("measures/old.json", "");
  platform.files().before = [](std::string_view operation, const std::string&) {
    if (operation == "removeItem") {
      throw FileManagerError("“measures” couldn’t be removed.");
    }
  };
  RecordedCommands test;
  EXPECT_THAT([&] { test.launchTest({{.script = "a", .iterationPath = "r"}}); },
              testing::raisesDocumentDirectoryError("“measures” couldn’t be removed."));
  EXPECT_THAT(test.commands, IsEmpty());
  EXPECT_THAT(test.testStatus(), IsEmpty());
  EXPECT_THAT(platform.driver().operations, IsEmpty());
  EXPECT_THAT(platform.documents().files(), ElementsAre("measures/old.json"));
}

TEST(IterationRunner, HomeIsNotPressedWhereTheResultsCannotBeWritten) {
  testing::TestPlatform platform;
  failAtWritesOf(platform, "testsStatus.json");
  quobrakUITests test;
  EXPECT_THAT([&] { test.launchTest({{.script = "applicationStart,com.example.test", .iterationPath = "r"}}); },
              testing::raisesDocumentDirectoryError("The disk is full."));
  EXPECT_THAT(platform.driver().operations,
              ElementsAre("launch: com.example.test", "screenshot", StartsWith("debugDescription")));
  EXPECT_EQ(test.testStatus().size(), 1U);
}

TEST(IterationRunner, HomeIsPressedAfterTheResultsAreWritten) {
  testing::TestPlatform platform;
  std::vector<std::string> filesAtHome;
  platform.driver().before = [&](std::string_view name, const std::string&) {
    if (name == "pressButton") {
      filesAtHome = platform.documents().files();
    }
  };
  quobrakUITests test;
  test.launchTest({});
  EXPECT_THAT(filesAtHome, ElementsAre("testsStatus.json"));
}

TEST(IterationRunner, StatusesOfOneInstanceAddUp) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  quobrakUITests test;
  test.launchTest({{.script = "nope", .iterationPath = "r"}});
  test.launchTest({{.script = "pause,1", .iterationPath = "r"}});
  EXPECT_EQ(platform.documents().read("testsStatus.json"),
            R"([{"stackTrace":"Error on line nope (line: 1). Cause: Function nope is not implemented",)"
            R"("status":"failed"},{"stackTrace":"","status":"success"}])");
}

}  // namespace
}  // namespace quobrak
