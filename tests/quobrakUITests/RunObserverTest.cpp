#include "quobrakUITests/RunObserver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

#include "quobrakUITests/quobrakUITests.h"
#include "tests/quobrakUITests/Environment.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/quobrakUITests/RecordedCommands.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using testing::Command;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Keeps what it is told, in words. Installed for as long as it lives.
class NotingObserver final : public RunObserver {
 public:
  NotingObserver() { install(this); }
  ~NotingObserver() override { install(nullptr); }
  NotingObserver(const NotingObserver&) = delete;
  NotingObserver& operator=(const NotingObserver&) = delete;

  void scriptStarted(const TestFile& testFile, std::size_t number, std::size_t total) override {
    notes.push_back("script " + std::to_string(number) + " of " + std::to_string(total) + ": " +
                    testFile.iterationPath);
  }
  void scriptFinished(const TestFile& testFile, const TestStatus& status) override {
    notes.push_back(testFile.iterationPath + " " + status.status + " " + status.stackTrace);
  }
  void scriptRaised(const std::exception& error) override {
    notes.push_back(std::string("script raised ") + error.what());
  }
  void pictureOrDumpRaised(const std::exception& error) override {
    notes.push_back(std::string("picture or dump raised ") + error.what());
  }
  void lineStarted(std::size_t number, std::string_view text) override {
    notes.push_back("start " + std::to_string(number) + " " + std::string(text));
  }
  void lineFinished(std::size_t number, std::string_view text, Seconds duration, const std::exception* error) override {
    const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(duration);
    notes.push_back("finish " + std::to_string(number) + " " + std::string(text) + " after " +
                    std::to_string(whole.count()) + " ms" + (error == nullptr ? "" : ": ") +
                    (error == nullptr ? "" : error->what()));
  }
  void stepFinished(const TestResultV2& step) override {
    notes.push_back("step " + step.test + " " + std::to_string(step.testTime));
  }

  std::vector<std::string> notes;
};

TEST(RunObserver, NoneIsInstalledAtFirst) {
  EXPECT_EQ(RunObserver::installed(), nullptr);
}

TEST(RunObserver, TheLastOneInstalledIsTheObserver) {
  const NotingObserver first;
  EXPECT_EQ(RunObserver::installed(), &first);
  {
    const NotingObserver second;
    EXPECT_EQ(RunObserver::installed(), &second);
  }
  EXPECT_EQ(RunObserver::installed(), nullptr);
}

TEST(RunObserver, IsToldOfScriptsAndTheirLines) {
  testing::TestPlatform platform;
  NotingObserver observer;
  quobrakUITests test;
  test.launchTest({{.script = "applicationStart,com.example.test\n\n# comment\n  pause,1500 ", .iterationPath = "a"},
                   {.script = "pause,20\nnope,x\npause,1", .iterationPath = "b"}});
  EXPECT_THAT(observer.notes,
              ElementsAre("script 1 of 2: a", "start 1 applicationStart,com.example.test",
                          "finish 1 applicationStart,com.example.test after 500 ms", "start 4 pause,1500",
                          "finish 4 pause,1500 after 1500 ms", "a success ", "script 2 of 2: b", "start 1 pause,20",
                          "finish 1 pause,20 after 20 ms", "start 2 nope,x",
                          "finish 2 nope,x after 0 ms: Function nope is not implemented",
                          "script raised Error on line nope,x (line: 2). Cause: Function nope is not implemented",
                          "b failed Error on line nope,x (line: 2). Cause: Function nope is not implemented"));
}

TEST(RunObserver, IsToldTheTextOfALineAsItRuns) {
  testing::TestPlatform platform;
  testing::setVariable("DURATION", "5");
  testing::setVariable("HASH", "#");
  NotingObserver observer;
  quobrakUITests test;
  test.executeActions("${HASH}\n\tpause,${DURATION}");
  EXPECT_THAT(observer.notes, ElementsAre("start 2 pause,5", "finish 2 pause,5 after 5 ms"));
}

TEST(RunObserver, IsToldOfErrorsOfEveryKind) {
  testing::TestPlatform platform;
  NotingObserver observer;
  testing::RecordedCommands test;
  test.meanwhile = [](const Command&) {
    Clock::shared().usleep(7000);
    throw std::runtime_error("The battery is empty.");
  };
  EXPECT_THROW(test.executeActions("a\nb"), std::runtime_error);
  EXPECT_THAT(observer.notes, ElementsAre("start 1 a", "finish 1 a after 7 ms: The battery is empty."));
}

TEST(RunObserver, IsToldOfStepsBeforeTheirLastPicture) {
  testing::TestPlatform platform;
  NotingObserver observer;
  quobrakUITests test;
  test.executeActions("measureStart,Home\npause,30");
  observer.notes.clear();
  platform.driver().before = [](std::string_view, const std::string&) {
    throw std::runtime_error("The battery is empty.");
  };
  EXPECT_THROW(test.executeActions("measureStop"), std::runtime_error);
  EXPECT_THAT(observer.notes, ElementsAre("start 1 measureStop", "step Home 30",
                                          "finish 1 measureStop after 0 ms: The battery is empty."));
}

TEST(RunObserver, IsToldNothingOfAScriptWithAMissingVariable) {
  testing::TestPlatform platform;
  testing::unsetVariable("UNSET");
  NotingObserver observer;
  quobrakUITests test;
  EXPECT_THROW(test.executeActions("pause,1\n${UNSET}"), FWKTError);
  EXPECT_THAT(observer.notes, IsEmpty());
}

TEST(RunObserver, IsToldTheRealReasonsOfAStatus) {
  testing::TestPlatform platform;
  testing::unsetVariable("UNSET");
  platform.driver().before = [](std::string_view operation, const std::string&) {
    if (operation == "screenshot") {
      throw std::runtime_error("The battery is empty.");
    }
  };
  NotingObserver observer;
  quobrakUITests test;
  test.launchTest({{.script = "${UNSET}", .iterationPath = "a"}});
  EXPECT_THAT(observer.notes,
              ElementsAre("script 1 of 1: a",
                          "script raised Error on line ${UNSET} (line: 1). Cause: You need to pass the extra parameter "
                          "UNSET to your test",
                          "picture or dump raised The battery is empty.",
                          "a failed An unknown error occured while taking screenshots and dump"));
}

TEST(RunObserver, SeesTheStatusThatIsWritten) {
  testing::TestPlatform platform;
  NotingObserver observer;
  quobrakUITests test;
  test.launchTest({{.script = "", .iterationPath = "a"}});
  EXPECT_THAT(observer.notes, ElementsAre("script 1 of 1: a",
                                          "picture or dump raised The application is not initialised. Please use "
                                          "applicationStart or launchBrowser at the beginning of your script.",
                                          "a success The application is not initialised. Please use "
                                          "applicationStart or launchBrowser at the beginning of your script."));
}

}  // namespace
}  // namespace quobrak
