#pragma once

#include <string>
#include <vector>

#include "host/terminal/Terminal.h"
#include "manual/DescribedCommands.h"

namespace quobrak::host {

/// All commands, group by group: how each is written, and what it does in one line.
std::string commandList(const std::vector<manual::DescribedGroup>& groups, const Terminal& terminal);

/// All that is known of a command.
std::string commandPage(const manual::DescribedCommand& command, const Terminal& terminal);

}  // namespace quobrak::host
