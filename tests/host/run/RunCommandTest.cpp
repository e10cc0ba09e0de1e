#include "host/run/RunCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <utility>

#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using testing::TemporaryFolder;

/// Runs in this process, quietly; the test process is a stand-in.
class TheRunCommand : public ::testing::Test {
 protected:
  TheRunCommand() {
    folder.write("S/a.txt", "applicationStart,com.example.test");
    testProcess("exit 0\n");
  }

  void testProcess(const std::string& shellScript) const {
    folder.write("program", "#!/bin/sh\n" + shellScript);
    std::filesystem::permissions(folder.path() / "program", std::filesystem::perms(0755));
  }

  std::string at(const std::string& path) const { return (folder.path() / path).string(); }

  ExitStatus runLoudly(std::vector<std::string> arguments) const {
    const Subcommand subcommand = runSubcommand();
    CLI::App app;
    const std::function<ExitStatus()> action = subcommand.declare(app);
    arguments.insert(arguments.end(), {"--test-process", at("program")});
    // The library takes them from the end.
    std::reverse(arguments.begin(), arguments.end());
    app.parse(arguments);
    return action();
  }

  ExitStatus run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.end(), {"--out", at("out"), "--quiet"});
    return runLoudly(std::move(arguments));
  }

  const TemporaryFolder folder;
};

/// Leaves what a run of one script leaves that passed.
constexpr const char* PASSING =
    "echo '[{\"stackTrace\":\"\",\"status\":\"success\"}]' > \"$QUOBRAK_DOCUMENTS/testsStatus.json\"\n"
    "echo '{\"event\":\"scriptStarted\",\"number\":1,\"time\":1}' > \"$QUOBRAK_TRACE\"\n"
    "echo '{\"event\":\"scriptFinished\",\"status\":\"success\",\"stackTrace\":\"\",\"time\":2}' >> "
    "\"$QUOBRAK_TRACE\"\n";

TEST_F(TheRunCommand, LeavesItsResultsInTheFolder) {
  testProcess(PASSING);
  EXPECT_EQ(run({at("S")}), ExitStatus::success);
  EXPECT_THAT(folder.read("out/results.json"), HasSubstr(R"("name":"a")"));
  EXPECT_THAT(folder.read("out/junit.xml"), StartsWith("<?xml"));
}

TEST_F(TheRunCommand, RunsNothingWhereACheckFindsAnError) {
  folder.write("S/b.txt", "nonsense");
  ::testing::internal::CaptureStderr();
  const ExitStatus status = run({at("S")});
  const std::string printed = ::testing::internal::GetCapturedStderr();
  EXPECT_EQ(status, ExitStatus::failed);
  EXPECT_THAT(printed, StartsWith(at("S/b.txt") + ":1:1: error: "));
  EXPECT_THAT(
      printed,
      HasSubstr("2 scripts, 1 error, 0 warnings. Nothing was run; --no-check runs the scripts all the same.\n"));
  EXPECT_FALSE(std::filesystem::exists(at("out")));
}

TEST_F(TheRunCommand, RunsUncheckedScriptsWhereItIsToldTo) {
  folder.write("S/a.txt", "nonsense");
  testProcess(PASSING);
  EXPECT_EQ(run({at("S"), "--no-check"}), ExitStatus::success);
}

TEST_F(TheRunCommand, ChecksWithTheVariablesThatScriptsGet) {
  folder.write("S/a.txt", "applicationStart,${APPLICATION}");
  testProcess(PASSING);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(run({at("S")}), ExitStatus::failed);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("APPLICATION"));
  EXPECT_EQ(run({at("S"), "--var", "APPLICATION=com.example.test"}), ExitStatus::success);
}

TEST_F(TheRunCommand, ChecksTheScriptsInTheOrderInWhichTheyRun) {
  folder.write("S/a.txt", "clickByText,Go");
  folder.write("S/b.txt", "applicationStart,com.example.test");
  testProcess("exit 2\n");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(run({at("S")}), ExitStatus::failed);
  // A shuffled run may come to the second one first.
  EXPECT_EQ(run({at("S"), "--shuffle", "1"}), ExitStatus::environmentFailed);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("a.txt:1:"));
}

TEST_F(TheRunCommand, ShowsWarningsUnlessItIsToBeQuiet) {
  folder.write("S/a.txt", "applicationStart,com.example.test,more");
  testProcess(PASSING);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(runLoudly({"--out", at("loud"), at("S")}), ExitStatus::success);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), StartsWith(at("S/a.txt") + ":1:35: warning: "));
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(run({at("S")}), ExitStatus::success);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(TheRunCommand, TellsWhereTheResultsAreOfAQuietRunThatDidNotPass) {
  testProcess("exit 1\n");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(run({at("S")}), ExitStatus::environmentFailed);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(), EndsWith("\nResults: " + at("out") + "\n"));
}

TEST_F(TheRunCommand, OffersToRunUncheckedScriptsWhereThatCouldBe) {
  folder.write("S/a.txt", "pause");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(run({at("S")}), ExitStatus::failed);
  EXPECT_THAT(
      ::testing::internal::GetCapturedStderr(),
      EndsWith("\n1 script, 1 error, 0 warnings. Nothing was run; --no-check runs the scripts all the same.\n"));
  folder.write("S/a.txt", "pause,\xE9");
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(run({at("S")}), ExitStatus::failed);
  EXPECT_THAT(::testing::internal::GetCapturedStderr(),
              EndsWith("\n1 script, 1 error, 0 warnings. Nothing was run.\n"));
}

TEST_F(TheRunCommand, RefusesWhatMakesNoSense) {
  EXPECT_THROW(run({at("S"), "--reference"}), UseError);
}

}  // namespace
}  // namespace quobrak::host
