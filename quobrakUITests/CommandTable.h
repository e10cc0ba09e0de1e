#pragma once

#include <span>

#include "quobrakUITests/CommandRow.h"

namespace quobrak {

/// All commands of the script language.
std::span<const CommandRow> commandTable();

}  // namespace quobrak
