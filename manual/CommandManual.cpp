#include "manual/CommandManual.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <variant>

#include "manual/ArgumentFailures.h"
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

std::string_view inWords(Unit unit) {
  switch (unit) {
    case Unit::text:
      return "text";
    case Unit::milliseconds:
      return "whole number, milliseconds";
    case Unit::percent:
      return "whole number, percent of the screen";
    case Unit::points:
      return "number, points";
    case Unit::count:
      return "whole number";
    case Unit::truthValue:
      return "`true` or `false`";
  }
  return "";
}

std::string whenLeftOut(const ArgumentInfo& argument) {
  struct InWords {
    std::string operator()(std::monostate) const { return reading == Reading::direct ? "stops the process" : "error"; }
    std::string operator()(std::int64_t number) const { return inCode(std::to_string(number)); }
    std::string operator()(bool truth) const { return truth ? "`true`" : "`false`"; }
    Reading reading;
  };
  return std::visit(InWords{argument.reading}, argument.defaultValue);
}

bool mayBeLeftOut(const ArgumentInfo& argument) {
  return !std::holds_alternative<std::monostate>(argument.defaultValue);
}

/// "name,first[,second]"
std::string usage(const CommandRow& row) {
  std::string line(row.name);
  std::string brackets;
  for (const ArgumentInfo& argument : row.arguments()) {
    if (mayBeLeftOut(argument)) {
      line += "[";
      brackets += "]";
    }
    line += "," + std::string(argument.label);
  }
  return line + brackets;
}

std::string argumentTable(const CommandRow& row, const CommandNote& note) {
  std::vector<std::vector<std::string>> rows;
  for (std::size_t i = 0; i < note.arguments.size(); ++i) {
    const ArgumentInfo& argument = row.arguments()[i];
    rows.push_back(
        {inCode(argument.label), note.arguments[i], std::string(inWords(argument.unit)), whenLeftOut(argument)});
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

std::string section(const CommandRow& row, const CommandNote& note) {
  const std::string blank = note.description.empty() ? "" : " ";
  return "\n### " + note.name + "\n\n" + block(usage(row)) + "\n" +
         wrapped(std::string(row.summary) + blank + note.description) + afterEmptyLine(argumentTable(row, note)) +
         afterEmptyLine(failureTable("Error", errorsOf(row, note))) +
         afterEmptyLine(failureTable("Stops the process", stopsOf(row, note))) + "\nExample:\n\n" + block(note.example);
}

std::string contents(const std::vector<CommandGroup>& groups) {
  std::string lines;
  for (const CommandGroup& group : groups) {
    std::string line = "- [" + group.title + "](#" + anchorOf(group.title) + "):";
    for (const CommandNote& note : group.notes) {
      line += (line.ends_with(":") ? " " : ", ");
      line += "[" + note.name + "](#" + anchorOf(note.name) + ")";
    }
    lines += wrapped(line);
  }
  return lines;
}

/// Takes the row that the note is on, which must be the next one.
const CommandRow& takeRow(std::span<const CommandRow>& rows, const CommandNote& note) {
  if (rows.empty() || rows.front().name != note.name) {
    throw NotesError("a note on \"" + note.name + "\" where the command table " +
                     (rows.empty() ? "ends" : "has \"" + std::string(rows.front().name) + "\""));
  }
  const CommandRow& row = rows.front();
  if (row.arguments().size() != note.arguments.size()) {
    throw NotesError("the note on \"" + note.name + "\" tells of " + std::to_string(note.arguments.size()) +
                     " arguments; the command has " + std::to_string(row.arguments().size()));
  }
  rows = rows.subspan(1);
  return row;
}

std::vector<Failure> joined(std::vector<Failure> first, const std::vector<Failure>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace

std::vector<Failure> errorsOf(const CommandRow& row, const CommandNote& note) {
  return joined(argumentErrors(row), note.errors);
}

std::vector<Failure> stopsOf(const CommandRow& row, const CommandNote& note) {
  return joined(argumentStops(row), note.stops);
}

std::string commandManual(std::span<const CommandRow> table, const std::vector<CommandGroup>& groups) {
  std::string page = wrapped(INTRODUCTION) + "\n" + contents(groups);
  for (const CommandGroup& group : groups) {
    page += "\n## " + group.title + "\n" + afterEmptyLine(wrapped(group.introduction));
    for (const CommandNote& note : group.notes) {
      page += section(takeRow(table, note), note);
    }
  }
  if (!table.empty()) {
    throw NotesError("no note on \"" + std::string(table.front().name) + "\", which the command table has");
  }
  return page;
}

}  // namespace quobrak::manual
