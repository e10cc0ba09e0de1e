#include "host/program/UseErrors.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>

#include "host/program/CommandLine.h"
#include "tests/host/program/SampleProgram.h"

namespace quobrak::host {
namespace {

/// What is said of arguments that cannot be used.
std::string explanationOf(const std::vector<std::string>& arguments) {
  const std::vector<Subcommand> subcommands = sampleSubcommands();
  CommandLine commandLine(subcommands);
  try {
    commandLine.run(arguments);
  } catch (const CLI::ParseError& error) {
    return explained(error, arguments, commandLine.program());
  }
  return "nothing";
}

struct Row {
  std::vector<std::string> arguments;
  const char* explanation;
};

TEST(UseErrors, SayWhatWouldBeRight) {
  const Row ROWS[] = {
      {{"pant"}, "there is no subcommand pant; did you mean paint?"},
      {{"bake"}, "there is no subcommand bake; there are paint, show, completion and help"},
      {{"\x1b[2J"}, "there is no subcommand ␛[2J; there are paint, show, completion and help"},
      {{"--", "bake"}, "there is no subcommand bake; there are paint, show, completion and help"},
      {{"--"}, "no subcommand is named; there are paint, show, completion and help"},
      {{"--verison"}, "quobrak has no option --verison; did you mean --version?"},
      {{"paint", "a", "--quite"}, "quobrak paint has no option --quite; did you mean --quiet?"},
      {{"paint", "--frmat=json"}, "quobrak paint has no option --frmat; did you mean --format?"},
      {{"paint", "a", "--wild"}, "quobrak paint has no option --wild; quobrak paint --help tells all that it has"},
      {{"paint", "a", "-x"}, "quobrak paint has no option -x; did you mean -o, -q or -h?"},
      {{"paint", "a", "-qx"}, "quobrak paint has no option -x; did you mean -o, -q or -h?"},
      {{"paint", "a", "\x1b[2J"}, "nothing"},
      {{"paint", "a", "--\x1b[2J"}, "quobrak paint has no option --␛[2J; quobrak paint --help tells all that it has"},
      {{"paint", "-q"}, "quobrak paint needs FILE: What to paint; quobrak paint --help tells more"},
      {{"paint", "a", "--format", "txt"}, "--format cannot be \"txt\"; did you mean text?"},
      {{"paint", "a", "--format", "paper"}, "--format cannot be \"paper\"; it can be text or json"},
      {{"paint", "a", "--number", "12"}, "--number: Value 12 not in range 1 to 9"},
      {{"paint", "a", "--number"}, "--number needs a value: NUMBER (How many)"},
      {{"paint", "a", "-q", "--loud"}, "--quiet cannot be given together with --loud"},
      {{"show", "pause", "now"},
       "quobrak show does not know what to do with now: it is used as \"quobrak show [OPTION]... [COMMAND]\""},
      {{"completion", "zhs"}, "SHELL cannot be \"zhs\"; did you mean zsh?"},
      // What stands for a value is none of the names.
      {{"paint", "--out", "--quite", "--format", "txt", "a"}, "--format cannot be \"txt\"; did you mean text?"},
      {{"paint", "a", "-o", "x", "-oy"}, "--out can be given only once"},
      {{"paint", "-ofolder", "--tag", "b", "c", "-q", "--", "--format"}, "nothing"},
      {{"paint", "--number=x", "a"}, "--number: Value x not in range 1 to 9"},
  };
  for (const Row& row : ROWS) {
    EXPECT_EQ(explanationOf(row.arguments), row.explanation);
  }
}

TEST(UseErrors, SuggestASubcommand) {
  EXPECT_EQ(unknownSubcommand("shwo", sampleProgram()), "there is no subcommand shwo; did you mean show?");
}

}  // namespace
}  // namespace quobrak::host
