#include "manual/DescribedCommands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace quobrak::manual {

/// Readable where a test fails.
static void PrintTo(const Failure& failure, std::ostream* stream) {
  *stream << failure.message << " (" << failure.when << ")";
}

namespace {

using ::testing::ElementsAre;
using ::testing::ThrowsMessage;

using Text = DirectField<1, "text">;
using Period = CheckedField<&Parameters::getPeriod, 2, "period", Unit::milliseconds, DEFAULT_ENTER_TEXT_FREQUENCY>;
using Duration = CheckedField<&Parameters::getPauseDuration, 1, "timeMillis", Unit::milliseconds>;

void operate(const std::string&, std::int64_t) {}
void operateFor(std::int64_t) {}
void operateAlone() {}

constexpr std::array TABLE{command<&operate, Text, Period>("type", "Types."),
                           command<&operateFor, Duration>("sleep", "Sleeps."),
                           command<&operateAlone>("rest", "Rests.")};

CommandNote note(const std::string& name, const std::vector<std::string>& arguments) {
  return {.name = name, .description = "", .arguments = arguments, .errors = {}, .stops = {}, .example = name};
}

const CommandNote TYPE{.name = "type",
                       .description = "Slowly.",
                       .arguments = {"what", "how slowly"},
                       .errors = {{.message = "No <text>", .when = "there is none"}},
                       .stops = {{.message = "Too slow", .when = "`period` is too much"}},
                       .example = "type,a"};
const CommandNote SLEEP = note("sleep", {"how long"});
const CommandNote REST = note("rest", {});

TEST(DescribedCommands, AreTheRowsWithTheirNotesInTheirGroups) {
  const std::vector<DescribedGroup> groups =
      describedCommands(TABLE, {{.title = "Work", .introduction = "What is done.", .notes = {TYPE}},
                                {.title = "Other", .introduction = "", .notes = {SLEEP, REST}}});
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].title, "Work");
  EXPECT_EQ(groups[0].introduction, "What is done.");
  ASSERT_EQ(groups[0].commands.size(), 1U);
  EXPECT_EQ(groups[0].commands[0].row.summary, "Types.");
  EXPECT_EQ(groups[0].commands[0].note.description, "Slowly.");
  EXPECT_EQ(groups[1].title, "Other");
  ASSERT_EQ(groups[1].commands.size(), 2U);
  EXPECT_EQ(groups[1].commands[0].row.name, "sleep");
  EXPECT_EQ(groups[1].commands[1].row.name, "rest");
}

TEST(DescribedCommands, WhatIsWrongWithArgumentsComesFirst) {
  EXPECT_THAT(errorsOf(TABLE[0], TYPE), ElementsAre(Failure{.message = "The frequency <period> should be an integer",
                                                            .when = "`period` is not a whole number"},
                                                    Failure{.message = "No <text>", .when = "there is none"}));
  EXPECT_THAT(
      stopsOf(TABLE[0], TYPE),
      ElementsAre(Failure{.message = "Index out of range: the field 1 (text) is missing", .when = "`text` is left out"},
                  Failure{.message = "Too slow", .when = "`period` is too much"}));
}

TEST(DescribedCommands, NeedANoteForEachRowInTheSameOrder) {
  struct Case {
    std::vector<CommandNote> notes;
    std::string message;
  };
  for (const auto& [notes, message] :
       {Case{{TYPE, REST, SLEEP}, R"(a note on "rest" where the command table has "sleep")"},
        Case{{TYPE, SLEEP}, R"(no note on "rest", which the command table has)"},
        Case{{TYPE, SLEEP, REST, REST}, R"(a note on "rest" where the command table ends)"},
        Case{{TYPE, note("sleep", {}), REST}, R"(the note on "sleep" tells of 0 arguments; the command has 1)"}}) {
    const std::vector<CommandGroup> groups{{.title = "All", .introduction = "", .notes = notes}};
    EXPECT_THAT([&groups] { describedCommands(TABLE, groups); }, ThrowsMessage<NotesError>(message));
  }
}

}  // namespace
}  // namespace quobrak::manual
