#include "manual/CommandManual.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <iterator>
#include <sstream>

#include "manual/CommandNotes.h"
#include "quobrakUITests/CommandTable.h"

namespace quobrak::manual {
namespace {

using ::testing::HasSubstr;

using Text = DirectField<1, "text">;
using Period = CheckedField<&Parameters::getPeriod, 2, "period", Unit::milliseconds, DEFAULT_ENTER_TEXT_FREQUENCY>;
using IsEnabled = CheckedField<&Parameters::getIsEnabled, 3, "isEnabled", Unit::truthValue, DEFAULT_IS_ENABLED>;
using Duration = CheckedField<&Parameters::getPauseDuration, 1, "timeMillis", Unit::milliseconds>;

void operate(const std::string&, std::int64_t, bool) {}
void operateFor(std::int64_t) {}
void operateAlone() {}

constexpr std::array TABLE{command<&operate, Text, Period, IsEnabled>("type", "Types."),
                           command<&operateFor, Duration>("sleep", "Sleeps."),
                           command<&operateAlone>("rest", "Rests.")};

CommandNote note(const std::string& name, const std::vector<std::string>& arguments) {
  return {.name = name, .description = "", .arguments = arguments, .errors = {}, .stops = {}, .example = name};
}

const CommandNote TYPE{.name = "type",
                       .description = "Slowly.",
                       .arguments = {"what", "how slowly", "whether"},
                       .errors = {{.message = "No <text>", .when = "there is none"}},
                       .stops = {{.message = "Too slow", .when = "`period` is too much"}},
                       .example = "type,a\ntype,b"};

std::vector<CommandGroup> groups() {
  return {{.title = "Work", .introduction = "What is done.", .notes = {TYPE}},
          {.title = "Other", .introduction = "", .notes = {note("sleep", {"how long"}), note("rest", {})}}};
}

/// The first line in which two long texts differ; empty where they do not.
std::string firstDifference(const std::string& left, const std::string& right) {
  std::istringstream leftLines(left);
  std::istringstream rightLines(right);
  std::string leftLine;
  std::string rightLine;
  for (int number = 1; leftLines && rightLines; ++number) {
    std::getline(leftLines, leftLine);
    std::getline(rightLines, rightLine);
    if (leftLine != rightLine || leftLines.eof() != rightLines.eof()) {
      return "line " + std::to_string(number) + ": " + leftLine + " / " + rightLine;
    }
  }
  return "";
}

TEST(CommandManual, BeginsWithTheContents) {
  EXPECT_THAT(
      commandManual(TABLE, groups()),
      HasSubstr("\n\n- [Work](#work): [type](#type)\n- [Other](#other): [sleep](#sleep), [rest](#rest)\n\n## Work\n"));
}

TEST(CommandManual, TellsOfACommandWhatTheRowAndTheNoteSay) {
  EXPECT_THAT(commandManual(TABLE, groups()), HasSubstr(R"(
## Work

What is done.

### type

```
type,text[,period[,isEnabled]]
```

Types. Slowly.

| Argument | What it is | Written as | Left out |
|---|---|---|---|
| `text` | what | text | stops the process |
| `period` | how slowly | whole number, milliseconds | `0` |
| `isEnabled` | whether | `true` or `false` | `true` |

| Error | When |
|---|---|
| `The frequency <period> should be an integer` | `period` is not a whole number |
| `isEnabled <isEnabled> should be an boolean` | `isEnabled` is neither `true` nor `false` |
| `No <text>` | there is none |

| Stops the process | When |
|---|---|
| `Index out of range: the field 1 (text) is missing` | `text` is left out |
| `Too slow` | `period` is too much |

Example:

```
type,a
type,b
```

## Other

### sleep
)"));
}

TEST(CommandManual, LeavesOutWhatThereIsNoneOf) {
  const std::string page = commandManual(TABLE, groups());
  EXPECT_THAT(page, ::testing::EndsWith(R"(
### rest

```
rest
```

Rests.

Example:

```
rest
```
)"));
  EXPECT_THAT(page, HasSubstr("| `timeMillis` | how long | whole number, milliseconds | error |"));
}

TEST(CommandManual, ADifferenceBetweenPagesIsFound) {
  EXPECT_EQ(firstDifference("a\nb\n", "a\nb\n"), "");
  EXPECT_EQ(firstDifference("a\nb\n", "a\nc\n"), "line 2: b / c");
  EXPECT_EQ(firstDifference("a\n", "a\nb\n"), "line 2:  / b");
  EXPECT_EQ(firstDifference("a", "a\n"), "line 1: a / a");
  EXPECT_EQ(firstDifference("", "a\n"), "line 1:  / a");
}

TEST(CommandManual, IsThePageThatUsersRead) {
  std::ifstream file(QUOBRAK_SOURCE_FOLDER "/docs/commands.md", std::ios::binary);
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(firstDifference(page, commandManual(commandTable(), commandNotes())), "") << "run ./dev docs";
}

}  // namespace
}  // namespace quobrak::manual
