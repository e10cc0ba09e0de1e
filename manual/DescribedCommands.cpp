#include "manual/DescribedCommands.h"

#include <utility>

#include "manual/ArgumentFailures.h"

namespace quobrak::manual {

namespace {

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

std::vector<DescribedGroup> describedCommands(std::span<const CommandRow> table,
                                              const std::vector<CommandGroup>& groups) {
  std::vector<DescribedGroup> result;
  for (const CommandGroup& group : groups) {
    DescribedGroup& told =
        result.emplace_back(DescribedGroup{.title = group.title, .introduction = group.introduction, .commands = {}});
    for (const CommandNote& note : group.notes) {
      told.commands.push_back({.row = takeRow(table, note), .note = note});
    }
  }
  if (!table.empty()) {
    throw NotesError("no note on \"" + std::string(table.front().name) + "\", which the command table has");
  }
  return result;
}

}  // namespace quobrak::manual
