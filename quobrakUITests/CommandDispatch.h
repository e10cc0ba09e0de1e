#pragma once

#include <span>
#include <string>
#include <string_view>

#include "quobrakUITests/CommandRow.h"

namespace quobrak {

/// What is told of a command that the table does not have.
std::string unknownCommandMessage(std::string_view name);

/// Runs the command that field 0 names, exactly. Throws `FWKTError::fdslError` where the table has no such command, and
/// what the command raises. Fatal where there are no fields.
void dispatchCommand(std::span<const CommandRow> table, FunctionParameters fields);

}  // namespace quobrak
