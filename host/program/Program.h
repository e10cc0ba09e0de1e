#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/Subcommand.h"

namespace quobrak::host {

/// Reads the arguments, the program's name not among them, and does what they say. Help and the version go to standard
/// output, what is wrong with the arguments or around the program to standard error.
ExitStatus runProgram(std::span<const Subcommand> subcommands, std::vector<std::string> arguments);

}  // namespace quobrak::host
