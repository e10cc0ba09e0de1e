#pragma once

#include <vector>

#include "manual/CommandNote.h"
#include "quobrakUITests/CommandRow.h"

namespace quobrak::manual {

/// What a command says of arguments that are missing or malformed, in the order in which it reads them. The arguments
/// themselves are asked, so the words are theirs.
std::vector<Failure> argumentErrors(const CommandRow& row);

/// What the process stops with for arguments that are missing.
std::vector<Failure> argumentStops(const CommandRow& row);

}  // namespace quobrak::manual
