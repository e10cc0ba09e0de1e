#include "host/run/RunCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

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

  ExitStatus run(const std::vector<std::string>& more) const {
    const Subcommand subcommand = runSubcommand();
    CLI::App app;
    const std::function<ExitStatus()> action = subcommand.declare(app);
    std::vector<std::string> arguments{"--test-process", at("program"), "--out", at("out"), "--quiet"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    std::reverse(arguments.begin(), arguments.end());
    app.parse(arguments);
    return action();
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

TEST_F(TheRunCommand, RefusesWhatMakesNoSense) {
  EXPECT_THROW(run({at("S"), "--reference"}), UseError);
}

}  // namespace
}  // namespace quobrak::host
