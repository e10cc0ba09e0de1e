#include "manual/CommandManual.h"

#include <algorithm>
#include <string_view>

#include "manual/ArgumentWords.h"
#include "manual/DescribedCommands.h"
#include "manual/Markdown.h"

namespace quobrak::manual {

namespace {

constexpr std::string_view INTRODUCTION = R"(# Commands

<!-- Made by ./dev docs from the command table and manual/. Do not write here. -->

All commands of the script language, in groups. How scripts are written and run, what selectors, patterns and the testing application are, stands in [script-language.md](script-language.md).

**Arguments** stand behind the command's name, between commas, in the order shown; those in brackets may be left out, from the last one on. An argument that is there but empty is not left out. A *whole number* is an optional `+` or `-` and decimal digits, nothing else, within 64 bits; a blank beside it is an error.

**Errors** end the script, and its status is `failed` with the reason `Error on line <line> (line: <number>). Cause: ` and the words given here. The next script runs all the same. In these words `<selector>` stands for the argument `selector` as the script has it, and so on; `<label>` for the label of an element. One error has no line: what the phone refuses, or a driver cannot do, makes the reason `An unknown error occured while executing actions`; the trace has the words of the phone. Each table tells when a command does that; beyond these, any command that asks or touches a phone fails so when the phone cannot be reached.

**Stops** end the whole process: the words go to standard error, behind `Fatal error: ` and followed by the line, and the statuses and measures of the run are not written.

The examples run on the built-in phone, as they stand.
)";

std::string argumentTable(const DescribedCommand& command) {
  std::vector<std::vector<std::string>> rows;
  for (std::size_t i = 0; i < command.note.arguments.size(); ++i) {
    const ArgumentInfo& argument = command.row.arguments()[i];
    rows.push_back({inCode(argument.label), command.note.arguments[i], std::string(writtenAs(argument.unit)),
                    whenLeftOut(argument)});
  }
  return table({"Argument", "What it is", "Written as", "Left out"}, rows);
}

std::string failureTable(const std::string& title, const std::vector<Failure>& failures) {
  std::vector<std::vector<std::string>> rows(failures.size());
  std::transform(failures.begin(), failures.end(), rows.begin(), [](const Failure& failure) {
    return std::vector{inCode(failure.message), failure.when};
  });
  return table({title, "When"}, rows);
}

std::string afterEmptyLine(const std::string& piece) {
  return piece.empty() ? "" : "\n" + piece;
}

std::string section(const DescribedCommand& command) {
  const CommandNote& note = command.note;
  const std::string blank = note.description.empty() ? "" : " ";
  return "\n### " + note.name + "\n\n" + block(usageOf(command.row)) + "\n" +
         wrapped(std::string(command.row.summary) + blank + note.description) + afterEmptyLine(argumentTable(command)) +
         afterEmptyLine(failureTable("Error", errorsOf(command.row, note))) +
         afterEmptyLine(failureTable("Stops the process", stopsOf(command.row, note))) + "\nExample:\n\n" +
         block(note.example);
}

std::string contents(const std::vector<DescribedGroup>& groups) {
  std::string lines;
  for (const DescribedGroup& group : groups) {
    std::string line = "- [" + group.title + "](#" + anchorOf(group.title) + "):";
    for (const DescribedCommand& command : group.commands) {
      line += (line.ends_with(":") ? " " : ", ");
      line += "[" + command.note.name + "](#" + anchorOf(command.note.name) + ")";
    }
    lines += wrapped(line);
  }
  return lines;
}

}  // namespace

std::string commandManual(std::span<const CommandRow> table, const std::vector<CommandGroup>& groups) {
  const std::vector<DescribedGroup> described = describedCommands(table, groups);
  std::string page = wrapped(INTRODUCTION) + "\n" + contents(described);
  for (const DescribedGroup& group : described) {
    page += "\n## " + group.title + "\n" + afterEmptyLine(wrapped(group.introduction));
    for (const DescribedCommand& command : group.commands) {
      page += section(command);
    }
  }
  return page;
}

}  // namespace quobrak::manual
