#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "manual/CommandNote.h"
#include "quobrakUITests/CommandRow.h"

namespace quobrak::manual {

/// The notes do not fit the command table: names the command, and what is wrong.
class NotesError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// All that is known of a command.
struct DescribedCommand {
  CommandRow row;
  CommandNote note;
};

/// Commands that are told of together.
struct DescribedGroup {
  std::string title;
  /// Markdown, and may be empty.
  std::string introduction;
  std::vector<DescribedCommand> commands;
};

/// What can go wrong with a command, its arguments first.
std::vector<Failure> errorsOf(const CommandRow& row, const CommandNote& note);
/// What stops the process, its arguments first.
std::vector<Failure> stopsOf(const CommandRow& row, const CommandNote& note);

/// Brings the rows and what users read of them together. The notes must be those of the rows, in the same order, with
/// as many arguments each; otherwise throws `NotesError`.
std::vector<DescribedGroup> describedCommands(std::span<const CommandRow> table,
                                              const std::vector<CommandGroup>& groups);

}  // namespace quobrak::manual
