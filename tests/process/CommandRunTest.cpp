#include <gmock/gmock.h>

#include <csignal>

#include "tests/process/TestProcessRun.h"

namespace quobrak::testing {

namespace {

using ::testing::IsEmpty;

class CommandRun : public ProcessTest {
 protected:
  CommandRun() {
    start.environment.erase("iteration");
    start.environment.erase("testFileNumber");
    start.environment["class"] = "dslCommandTest";
  }

  /// A run that raised: says what and why, and leaves no file.
  void expectFailure(const std::string& message) const {
    const ProcessEnd end = run();
    EXPECT_EQ(end.exitStatus, 1);
    EXPECT_EQ(end.out, testCaseLines("failed", "0.000"));
    EXPECT_EQ(end.err, caughtError(message));
    EXPECT_THAT(snapshot(documents()), IsEmpty());
  }
};

}  // namespace

TEST_F(CommandRun, PassesWithACommandThatWorks) {
  start.environment["command"] = "pause,10";
  const ProcessEnd end = run();
  EXPECT_EQ(end.exitStatus, 0);
  EXPECT_EQ(end.out, testCaseLines("passed", "0.010"));
  EXPECT_EQ(end.err, "");
  EXPECT_THAT(snapshot(documents()), IsEmpty());
}

TEST_F(CommandRun, FailsWithAnUnknownCommand) {
  start.environment["command"] = "nonsense,1";
  expectFailure("Function nonsense is not implemented");
}

TEST_F(CommandRun, TakesTheCommandAsItStands) {
  start.environment["LENGTH"] = "10";
  start.environment["command"] = "pause,${LENGTH}";
  expectFailure("The pause duration ${LENGTH} should be a positive integer");
  start.environment["command"] = " pause,10";
  expectFailure("Function  pause is not implemented");
  start.environment["command"] = "# pause";
  expectFailure("Function # pause is not implemented");
}

TEST_F(CommandRun, FailsWithAnEmptyCommand) {
  start.environment["command"] = "";
  expectFailure("Function  is not implemented");
}

TEST_F(CommandRun, FailsWithoutACommand) {
  expectFailure("The command is not set");
}

TEST_F(CommandRun, FailsWithoutAClass) {
  start.environment.erase("class");
  expectFailure("The class is not set");
}

TEST_F(CommandRun, FailsWithAClassThatIsNone) {
  start.environment["command"] = "pause,10";
  start.environment["class"] = "dslcommandtest";
  expectFailure("The class is not supported");
  start.environment["class"] = "";
  expectFailure("The class is not supported");
}

TEST_F(CommandRun, FailsWithWhatThePhoneRaised) {
  start.environment["command"] = "applicationStart,com.example.absent";
  expectFailure(
      "launch of the application \"com.example.absent\" on the simulated phone: it is not installed; installed are "
      "com.apple.springboard, com.example.test");
}

TEST_F(CommandRun, StopsTheProcessWhereADirectFieldIsMissing) {
  start.environment["command"] = "clickByText";
  const ProcessEnd end = run();
  EXPECT_EQ(end.signal, SIGABRT);
  EXPECT_EQ(end.out, "Test Case '-[quobrakUITests testMain]' started.\n");
  EXPECT_EQ(end.err, "Fatal error: Index out of range: the field 1 (selector) is missing\n");
  EXPECT_THAT(snapshot(documents()), IsEmpty());
}

}  // namespace quobrak::testing
