#include "host/run/RunOptions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>

#include "host/Subcommand.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

RunOptions read(std::vector<std::string> arguments, const EnvironmentVariables& own = {}) {
  RunOptions options;
  CLI::App app;
  declareRunOptions(app, options);
  std::reverse(arguments.begin(), arguments.end());
  app.parse(arguments);
  requireUsable(options, own);
  return options;
}

/// What the error says; empty where there is none.
std::string errorOf(const std::vector<std::string>& arguments, const EnvironmentVariables& own = {}) {
  try {
    read(arguments, own);
  } catch (const UseError& error) {
    return error.what();
  }
  return "";
}

TEST(RunOptions, AreFewUnlessTold) {
  const RunOptions options = read({"a.txt", "folder"});
  EXPECT_THAT(options.scripts, ElementsAre("a.txt", "folder"));
  EXPECT_EQ(options.kind(), RunKind::scripts);
  EXPECT_EQ(options.iterations, 1U);
  EXPECT_EQ(options.warmUps, 0U);
  EXPECT_EQ(options.rest, 0ms);
  EXPECT_EQ(options.shuffleSeed, std::nullopt);
  EXPECT_EQ(options.suite, std::nullopt);
  EXPECT_EQ(options.phone, std::nullopt);
  EXPECT_EQ(options.driver, std::nullopt);
  EXPECT_EQ(options.clock, std::nullopt);
  EXPECT_EQ(options.out, std::nullopt);
  EXPECT_EQ(options.testProcess, std::nullopt);
  EXPECT_FALSE(options.isFailFast);
  EXPECT_FALSE(options.isUnchecked);
  EXPECT_FALSE(options.isQuiet);
}

TEST(RunOptions, AreRead) {
  const testing::TemporaryFolder phone;
  phone.write("phone.json", "{}");
  const RunOptions options = read({"--iterations", "30",         "--warmup",       "2",
                                   "--rest",       "2min",       "--shuffle",      "18446744073709551615",
                                   "--suite",      "S",          "--var",          "A=1",
                                   "a.txt",        "--var",      "B=[x,y]",        "b.txt",
                                   "--env-file",   "f",          "--phone",        phone.path().string(),
                                   "--driver",     "simulator",  "--clock",        "virtual",
                                   "--out",        "o",          "--test-process", "t",
                                   "--fail-fast",  "--no-check", "--quiet"});
  EXPECT_THAT(options.scripts, ElementsAre("a.txt", "b.txt"));
  EXPECT_EQ(options.iterations, 30U);
  EXPECT_EQ(options.warmUps, 2U);
  EXPECT_EQ(options.rest, 2min);
  EXPECT_EQ(options.shuffleSeed, std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(options.suite, "S");
  EXPECT_THAT(options.variables.definitions, ElementsAre("A=1", "B=[x,y]"));
  EXPECT_THAT(options.variables.files, ElementsAre("f"));
  EXPECT_EQ(options.phone, phone.path());
  EXPECT_EQ(options.driver, "simulator");
  EXPECT_EQ(options.clock, "virtual");
  EXPECT_EQ(options.out, "o");
  EXPECT_EQ(options.testProcess, "t");
  EXPECT_TRUE(options.isFailFast);
  EXPECT_TRUE(options.isUnchecked);
  EXPECT_TRUE(options.isQuiet);
}

TEST(RunOptions, TellTheKindOfTheRun) {
  const RunOptions command = read({"--command", "pause,100"});
  EXPECT_EQ(command.kind(), RunKind::command);
  EXPECT_EQ(command.command, "pause,100");
  EXPECT_EQ(read({"--reference"}).kind(), RunKind::reference);
}

TEST(RunOptions, ThatDoNotGoTogetherAreRefused) {
  const std::string choose = "scripts, --command and --reference are three kinds of run: choose one of them";
  EXPECT_EQ(errorOf({}), "there is nothing to run: name scripts or folders of them, or use --command or --reference");
  EXPECT_EQ(errorOf({"a.txt", "--reference"}), choose);
  EXPECT_EQ(errorOf({"a.txt", "--command", "x"}), choose);
  EXPECT_EQ(errorOf({"--reference", "--command", "x"}), choose);
  EXPECT_EQ(errorOf({"--reference", "--suite", "S"}), "--suite is for scripts, and cannot be used with --reference");
  EXPECT_EQ(errorOf({"--command", "x", "--shuffle", "1"}),
            "--shuffle is for scripts, and cannot be used with --command");
  EXPECT_EQ(errorOf({"--command", "x", "--var", "A=1"}), "--var is for scripts, and cannot be used with --command");
  EXPECT_EQ(errorOf({"--reference", "--env-file", "f"}),
            "--env-file is for scripts, and cannot be used with --reference");
  EXPECT_EQ(errorOf({"a.txt", "--driver", "webdriver", "--clock", "virtual"}),
            "--clock virtual cannot be used with --driver webdriver: a real phone takes real time");
  EXPECT_EQ(errorOf({"a.txt", "--driver", "webdriver", "--phone", "p"}),
            "--phone describes a simulated phone, and cannot be used with --driver webdriver");
  EXPECT_EQ(errorOf({"a.txt", "--driver", "webdriver", "--clock", "system"}), "");
}

TEST(RunOptions, FitTheVariablesThatCountInTheirPlace) {
  EXPECT_EQ(errorOf({"a.txt", "--clock", "virtual"}, {{"QUOBRAK_DRIVER", "webdriver"}}),
            "--clock virtual cannot be used with QUOBRAK_DRIVER=webdriver: a real phone takes real time");
  EXPECT_EQ(errorOf({"a.txt", "--driver", "webdriver"}, {{"QUOBRAK_CLOCK", "virtual"}}),
            "QUOBRAK_CLOCK=virtual cannot be used with --driver webdriver: a real phone takes real time");
  EXPECT_EQ(errorOf({"a.txt", "--clock", "system"}, {{"QUOBRAK_CLOCK", "virtual"}, {"QUOBRAK_DRIVER", "webdriver"}}),
            "");
  EXPECT_EQ(errorOf({"a.txt", "--phone", "p"}, {{"QUOBRAK_DRIVER", "webdriver"}}),
            "--phone describes a simulated phone, and cannot be used with QUOBRAK_DRIVER=webdriver");
}

TEST(RunOptions, NameAPhoneThatThereIs) {
  const testing::TemporaryFolder folder;
  folder.write("phone/phone.json", "{}");
  const std::string path = folder.path().string();
  EXPECT_EQ(errorOf({"a.txt", "--phone", path + "/phone"}), "");
  EXPECT_EQ(errorOf({"a.txt", "--phone", path + "/none"}),
            "there is no folder " + path + "/none; a phone is a folder with a file phone.json");
  EXPECT_EQ(errorOf({"a.txt", "--phone", path}), "the folder " + path + " has no file phone.json, and is no phone");
}

TEST(RunOptions, ThatAreEmptyAreRefused) {
  EXPECT_EQ(errorOf({"--command", ""}), "--command is empty, but must be a command, as in --command pause,100");
  EXPECT_EQ(errorOf({"a.txt", "--out", ""}), "--out is empty, but must be a folder");
}

TEST(RunOptions, ThatAreNoNumbersAreRefused) {
  for (const char* text : {"0", "-1", "1.5", "", "x", "1 ", "1000001", "99999999999999999999"}) {
    EXPECT_EQ(errorOf({"a.txt", "--iterations", text}),
              "--iterations is \"" + std::string(text) + "\", but must be a whole number from 1 to 1000000");
  }
  EXPECT_EQ(read({"a.txt", "--iterations", "010"}).iterations, 10U);
  EXPECT_EQ(errorOf({"a.txt", "--warmup", "few"}), "--warmup is \"few\", but must be a whole number from 0 to 1000000");
  EXPECT_EQ(errorOf({"a.txt", "--shuffle", "-1"}),
            "--shuffle is \"-1\", but must be a whole number from 0 to 18446744073709551615");
  EXPECT_EQ(errorOf({"a.txt", "--rest", "soon"}),
            "--rest is \"soon\", but must be a whole number of milliseconds, or one with a unit, such as 500ms, 30s, "
            "2min or 1h, a day at most");
}

TEST(RunOptions, NameDriversAndClocksThatThereAre) {
  EXPECT_THROW(read({"a.txt", "--driver", "phone"}), CLI::ValidationError);
  EXPECT_THROW(read({"a.txt", "--clock", "fast"}), CLI::ValidationError);
}

TEST(Durations, AreReadWithTheirUnits) {
  const std::vector<std::pair<std::string_view, std::optional<std::chrono::milliseconds>>> cases{
      {"0", 0ms},      {"500", 500ms},   {"500ms", 500ms},
      {"30s", 30s},    {"2min", 2min},   {"24h", 24h},
      {"25h", {}},     {"1440min", 24h}, {"86400000", 24h},
      {"1441min", {}}, {"86400001", {}}, {"", {}},
      {"s", {}},       {"1.5s", {}},     {"-1", {}},
      {"1 s", {}},     {"1S", {}},       {"99999999999999999999", {}}};
  for (const auto& [text, duration] : cases) {
    EXPECT_EQ(parseDuration(text), duration) << text;
  }
}

}  // namespace
}  // namespace quobrak::host
