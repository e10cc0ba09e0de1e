#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/Subcommand.h"

namespace quobrak::host {

/// Reads the arguments, the program's name not among them, and does what they say. Help and the version go to standard
/// output, what is wrong with the arguments or around the program to standard error. Where standard output cannot be
/// written, what would have been a success is `ExitStatus::environmentFailed`.
ExitStatus runProgram(std::span<const Subcommand> subcommands, const std::vector<std::string>& arguments);

}  // namespace quobrak::host
