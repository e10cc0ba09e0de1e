#include "runner/TestProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "quobrakUITests/RunObserver.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak {

namespace {

namespace fs = std::filesystem;

struct Outcome {
  ExitStatus status;
  std::string out;
  std::string err;
};

/// Runs one command in this very process.
class TestProcess : public ::testing::Test {
 protected:
  TestProcess() {
    ::clearenv();
    set("class", "dslCommandTest");
    set("QUOBRAK_CLOCK", "virtual");
    set("QUOBRAK_DOCUMENTS", documents().string());
  }

  static void set(const std::string& name, const std::string& value) {
    ASSERT_EQ(::setenv(name.c_str(), value.c_str(), 1), 0);
  }

  static Outcome run() {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const ExitStatus status = runTestProcess();
    const std::string err = ::testing::internal::GetCapturedStderr();
    return {status, ::testing::internal::GetCapturedStdout(), err};
  }

  fs::path documents() const { return folder.path() / "Documents"; }

  const testing::TemporaryFolder folder;
};

}  // namespace

TEST_F(TestProcess, Passes) {
  set("command", "pause,1250");
  const Outcome outcome = run();
  EXPECT_EQ(outcome.status, ExitStatus::passed);
  EXPECT_EQ(outcome.out,
            "Test Case '-[quobrakUITests testMain]' started.\n"
            "Test Case '-[quobrakUITests testMain]' passed (1.250 seconds).\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(TestProcess, FailsWithWhatTheTestRaised) {
  const Outcome outcome = run();
  EXPECT_EQ(outcome.status, ExitStatus::failed);
  EXPECT_EQ(outcome.out,
            "Test Case '-[quobrakUITests testMain]' started.\n"
            "Test Case '-[quobrakUITests testMain]' failed (0.000 seconds).\n");
  EXPECT_EQ(outcome.err, "error: -[quobrakUITests testMain] : failed: caught error: \"The command is not set\"\n");
}

TEST_F(TestProcess, RefusesAWrongConfigurationBeforeItTouchesAnything) {
  set("QUOBRAK_CLOCK", "slow");
  const fs::path workingDirectory = fs::current_path();
  const Outcome outcome = run();
  EXPECT_EQ(outcome.status, ExitStatus::misconfigured);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "configuration error: QUOBRAK_CLOCK is \"slow\", but must be system or virtual\n");
  EXPECT_EQ(fs::current_path(), workingDirectory);
  EXPECT_FALSE(fs::exists(documents()));
}

TEST_F(TestProcess, WorksInTheRootFolder) {
  set("command", "pause,1");
  EXPECT_EQ(run().status, ExitStatus::passed);
  EXPECT_EQ(fs::current_path(), "/");
  EXPECT_TRUE(fs::is_directory(documents()));
}

TEST_F(TestProcess, LeavesNoObserverBehind) {
  set("command", "pause,1");
  set("QUOBRAK_TRACE", (folder.path() / "trace").string());
  EXPECT_EQ(run().status, ExitStatus::passed);
  EXPECT_EQ(RunObserver::installed(), nullptr);
  EXPECT_THAT(folder.read("trace"), ::testing::HasSubstr("addInterruptionMonitor"));
}

TEST_F(TestProcess, DoesNotEndWhenAReaderHasGone) {
  set("command", "pause,1");
  EXPECT_EQ(run().status, ExitStatus::passed);
  EXPECT_EQ(std::signal(SIGPIPE, SIG_DFL), SIG_IGN);
}

}  // namespace quobrak
