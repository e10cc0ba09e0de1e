#pragma once

#include <span>
#include <string>
#include <vector>

#include "manual/CommandNote.h"
#include "quobrakUITests/CommandRow.h"

namespace quobrak::manual {

/// The page on all commands, in Markdown. The notes must be those of the rows, in the same order, with as many
/// arguments each; otherwise throws `NotesError`.
std::string commandManual(std::span<const CommandRow> table, const std::vector<CommandGroup>& groups);

}  // namespace quobrak::manual
