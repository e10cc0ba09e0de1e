#pragma once

#include <vector>

#include "host/Subcommand.h"

namespace quobrak::host {

/// All that the program can be told to do, in the order in which its help shows them.
const std::vector<Subcommand>& subcommands();

}  // namespace quobrak::host
