#include "manual/CommandNotes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "manual/DescribedCommands.h"
#include "quobrakUITests/CommandTable.h"
#include "quobrakUITests/Fields.h"

namespace quobrak::manual {
namespace {

using ::testing::AnyOf;
using ::testing::EndsWith;
using ::testing::Not;

std::vector<CommandNote> allNotes() {
  std::vector<CommandNote> notes;
  for (const CommandGroup& group : commandNotes()) {
    notes.insert(notes.end(), group.notes.begin(), group.notes.end());
  }
  return notes;
}

std::set<std::string_view> commandsIn(std::string_view script) {
  std::set<std::string_view> commands;
  std::vector<std::string_view> fields;
  while (!script.empty()) {
    const std::string_view line = script.substr(0, script.find('\n'));
    script.remove_prefix(std::min(line.size() + 1, script.size()));
    splitAtCommas(line, fields);
    commands.insert(fields[0]);
  }
  return commands;
}

TEST(CommandNotes, AreThoseOfTheTableInItsOrder) {
  std::vector<std::string> commands;
  for (const CommandRow& row : commandTable()) {
    commands.emplace_back(row.name);
  }
  std::vector<std::string> noted;
  for (const CommandNote& note : allNotes()) {
    noted.push_back(note.name);
  }
  EXPECT_EQ(noted, commands);
}

TEST(CommandNotes, AnExampleUsesItsCommand) {
  for (const CommandNote& note : allNotes()) {
    EXPECT_TRUE(commandsIn(note.example).contains(note.name)) << note.name;
  }
}

TEST(CommandNotes, NoFailureIsToldTwice) {
  std::span<const CommandRow> rows = commandTable();
  for (const CommandNote& note : allNotes()) {
    std::set<std::string> messages;
    for (const Failure& failure : errorsOf(rows.front(), note)) {
      EXPECT_TRUE(messages.insert(failure.message).second) << note.name << ": " << failure.message;
    }
    for (const Failure& failure : stopsOf(rows.front(), note)) {
      EXPECT_TRUE(messages.insert(failure.message).second) << note.name << ": " << failure.message;
    }
    rows = rows.subspan(1);
  }
}

TEST(CommandNotes, SentencesEndWithAStopAndCellsWithoutOne) {
  for (const CommandNote& note : allNotes()) {
    EXPECT_THAT(note.description, AnyOf("", EndsWith("."))) << note.name;
    for (const std::string& argument : note.arguments) {
      EXPECT_THAT(argument, Not(AnyOf("", EndsWith(".")))) << note.name;
    }
    for (const Failure& failure : note.errors) {
      EXPECT_THAT(failure.when, Not(AnyOf("", EndsWith(".")))) << note.name;
    }
    for (const Failure& failure : note.stops) {
      EXPECT_THAT(failure.when, Not(AnyOf("", EndsWith(".")))) << note.name;
    }
  }
}

TEST(CommandNotes, NoCellOfATableHasABarThatWouldEndIt) {
  for (const CommandNote& note : allNotes()) {
    for (const Failure& failure : note.errors) {
      EXPECT_EQ((failure.message + failure.when).find('|'), std::string::npos) << note.name;
    }
    for (const std::string& argument : note.arguments) {
      EXPECT_EQ(argument.find('|'), std::string::npos) << note.name;
    }
  }
}

}  // namespace
}  // namespace quobrak::manual
