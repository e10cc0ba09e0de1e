#include "host/program/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <system_error>

namespace quobrak::host {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// What a run of the program left.
struct Outcome {
  ExitStatus status;
  std::string out;
  std::string err;
};

Subcommand greeting(std::function<ExitStatus(const std::string& name)> greet) {
  return {.name = "greet",
          .summary = "Says hello",
          .description = "It is polite.",
          .examples = {{.line = "quobrak greet Ada", .purpose = "says hello to Ada"}},
          .declare = [greet](CLI::App& app) {
            const auto name = std::make_shared<std::string>();
            app.add_option("NAME", *name, "Whom")->required();
            return [greet, name] { return greet(*name); };
          }};
}

Outcome run(const Subcommand& subcommand, const std::vector<std::string>& arguments) {
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  const ExitStatus status = runProgram(std::span(&subcommand, 1), arguments);
  return {.status = status,
          .out = ::testing::internal::GetCapturedStdout(),
          .err = ::testing::internal::GetCapturedStderr()};
}

TEST(Program, DoesWhatTheSubcommandSaysAndEndsAsItDoes) {
  std::string greeted;
  const Outcome outcome = run(greeting([&greeted](const std::string& name) {
                                greeted = name;
                                return ExitStatus::failed;
                              }),
                              {"greet", "Ada"});
  EXPECT_EQ(greeted, "Ada");
  EXPECT_EQ(outcome.status, ExitStatus::failed);
  EXPECT_EQ(outcome.out + outcome.err, "");
}

TEST(Program, ShowsItsHelp) {
  const Outcome outcome = run(greeting({}), {"--help"});
  EXPECT_EQ(outcome.status, ExitStatus::success);
  EXPECT_THAT(outcome.out, HasSubstr("greet"));
  EXPECT_THAT(outcome.out, HasSubstr("Says hello"));
}

TEST(Program, ShowsTheHelpOfASubcommandWithItsExamples) {
  const Outcome outcome = run(greeting({}), {"greet", "--help"});
  EXPECT_EQ(outcome.status, ExitStatus::success);
  EXPECT_THAT(outcome.out, HasSubstr("Whom"));
  EXPECT_THAT(outcome.out, HasSubstr("\n\nExamples:\n  quobrak greet Ada\n      says hello to Ada\n"));
}

TEST(Program, ShowsInShortHowItIsUsedWhereNothingIsTold) {
  const Outcome outcome = run(greeting({}), {});
  EXPECT_EQ(outcome.status, ExitStatus::badUse);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, StartsWith("Usage: quobrak SUBCOMMAND"));
}

TEST(Program, TellsItsVersion) {
  const Outcome outcome = run(greeting({}), {"--version"});
  EXPECT_EQ(outcome.status, ExitStatus::success);
  EXPECT_EQ(outcome.out, "quobrak " QUOBRAK_VERSION "\n");
}

TEST(Program, RefusesArgumentsThatItDoesNotKnow) {
  const Outcome outcome = run(greeting({}), {"greet", "Ada", "--loudly"});
  EXPECT_EQ(outcome.status, ExitStatus::badUse);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "quobrak: quobrak greet has no option --loudly; quobrak greet --help tells all that it has\n");
}

TEST(Program, ReportsUseThatMakesNoSense) {
  const Outcome outcome =
      run(greeting([](const std::string&) -> ExitStatus { throw UseError("not that name"); }), {"greet", "Ada"});
  EXPECT_EQ(outcome.status, ExitStatus::badUse);
  EXPECT_EQ(outcome.err, "quobrak: not that name\n");
}

TEST(Program, ReportsWhatFailedAroundIt) {
  const Outcome outcome = run(
      greeting([](const std::string&) -> ExitStatus { throw EnvironmentError("the disk is full"); }), {"greet", "Ada"});
  EXPECT_EQ(outcome.status, ExitStatus::environmentFailed);
  EXPECT_EQ(outcome.err, "quobrak: the disk is full\n");
}

TEST(Program, ReportsWhatNobodyForesawOfFiles) {
  const Outcome outcome = run(greeting([](const std::string&) -> ExitStatus {
                                throw std::filesystem::filesystem_error(
                                    "cannot look", "a\x1b", std::make_error_code(std::errc::no_such_file_or_directory));
                              }),
                              {"greet", "Ada"});
  EXPECT_EQ(outcome.status, ExitStatus::environmentFailed);
  EXPECT_EQ(outcome.err, "quobrak: filesystem error: cannot look: No such file or directory [a␛]\n");
}

/// The status of a run that would end so, where standard output cannot be written.
ExitStatus statusWithoutOutput(ExitStatus status) {
  std::ofstream full("/dev/full");
  std::streambuf* const before = std::cout.rdbuf(full.rdbuf());
  const Outcome outcome = run(greeting([status](const std::string&) {
                                std::cout << "Hello";
                                return status;
                              }),
                              {"greet", "Ada"});
  std::cout.clear();
  std::cout.rdbuf(before);
  EXPECT_EQ(outcome.err, "quobrak: standard output cannot be written\n");
  return outcome.status;
}

TEST(Program, DoesNotSucceedWhereWhatItPrintsIsLost) {
  EXPECT_EQ(statusWithoutOutput(ExitStatus::success), ExitStatus::environmentFailed);
  EXPECT_EQ(statusWithoutOutput(ExitStatus::failed), ExitStatus::failed);
}

/// Standard output leads to a reader that has gone, for as long as this lives.
class GoneReader {
 public:
  GoneReader() : before_(::dup(STDOUT_FILENO)), onSignal_(std::signal(SIGPIPE, SIG_IGN)) {
    std::cout.flush();
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe(ends.data()), 0);
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[0]);
    ::close(ends[1]);
  }
  ~GoneReader() {
    std::cout.clear();
    std::clearerr(stdout);
    ::dup2(before_, STDOUT_FILENO);
    ::close(before_);
    std::signal(SIGPIPE, onSignal_);
  }
  GoneReader(const GoneReader&) = delete;
  GoneReader& operator=(const GoneReader&) = delete;

 private:
  int before_;
  sighandler_t onSignal_;
};

TEST(Program, SucceedsWhereItsReaderHasHadEnough) {
  const GoneReader gone;
  ::testing::internal::CaptureStderr();
  const Subcommand subcommand = greeting([](const std::string&) {
    std::cout << "Hello" << std::endl;
    return ExitStatus::success;
  });
  EXPECT_EQ(runProgram(std::span(&subcommand, 1), {"greet", "Ada"}), ExitStatus::success);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace quobrak::host
