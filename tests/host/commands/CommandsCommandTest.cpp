#include "host/commands/CommandsCommand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <vector>

#include "platform/foundation/JSON.h"
#include "quobrakUITests/CommandTable.h"

namespace quobrak::host {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using ::testing::ThrowsMessage;

/// What the subcommand writes to standard output with these arguments.
std::string outputOf(std::vector<std::string> arguments) {
  CLI::App app;
  const auto action = commandsSubcommand().declare(app);
  std::reverse(arguments.begin(), arguments.end());
  app.parse(arguments);
  ::testing::internal::CaptureStdout();
  ExitStatus status{};
  try {
    status = action();
  } catch (const UseError&) {
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    throw;
  }
  EXPECT_EQ(status, ExitStatus::success);
  return ::testing::internal::GetCapturedStdout();
}

std::vector<std::string> namesIn(const std::string& document) {
  const JSONValue decoded = JSONDecoder::decode(document);
  std::vector<std::string> names;
  for (const JSONReader& command : JSONReader(decoded).member("commands").elements()) {
    names.push_back(command.member("name").text());
  }
  return names;
}

TEST(CommandsCommand, WithoutANameListsAll) {
  const std::string list = outputOf({});
  EXPECT_THAT(list, StartsWith("Applications\n  applicationStart,bundleId         Starts"));
  for (const CommandRow& row : commandTable()) {
    EXPECT_THAT(list, HasSubstr("\n  " + std::string(row.name)));
  }
}

TEST(CommandsCommand, ExplainsTheCommandsInTheOrderOfTheirNames) {
  const std::string pages = outputOf({"pressHome", "applicationKill"});
  EXPECT_THAT(pages, StartsWith("pressHome\n\n  Presses the Home button."));
  EXPECT_THAT(pages, HasSubstr("\n\n\napplicationKill,bundleId\n\n"));
}

TEST(CommandsCommand, ForProgramsTellsOfAllOrOfThoseThatAreNamed) {
  std::vector<std::string> all;
  for (const CommandRow& row : commandTable()) {
    all.emplace_back(row.name);
  }
  EXPECT_EQ(namesIn(outputOf({"--format", "json"})), all);
  const std::string two = outputOf({"pressHome", "applicationKill", "--format", "json"});
  EXPECT_EQ(namesIn(two), (std::vector<std::string>{"applicationKill", "pressHome"}));
  EXPECT_THAT(two, EndsWith("]}\n"));
}

TEST(CommandsCommand, AnUnknownNameIsAskedBack) {
  EXPECT_THAT(
      [] {
        outputOf({"pause", "clickbytext"});
      },
      ThrowsMessage<UseError>("there is no command \"clickbytext\"; did you mean clickByText?"));
  EXPECT_THAT(
      [] {
        outputOf({"--format", "json", "\x1b[2J", "pauze"});
      },
      ThrowsMessage<UseError>("there is no command \"␛[2J\"; \"quobrak commands\" lists all\n"
                              "there is no command \"pauze\"; did you mean pause?"));
}

TEST(CommandsCommand, AnotherFormatIsRefused) {
  EXPECT_THROW(outputOf({"--format", "xml"}), CLI::ValidationError);
}

}  // namespace
}  // namespace quobrak::host
