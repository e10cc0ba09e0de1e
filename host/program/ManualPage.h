#pragma once

#include <string>

#include "host/program/Declarations.h"

namespace quobrak::host {

/// The manual page of the program, quobrak(1), as source for `man` (roff with the macros of man(7)). `version` is such
/// as "quobrak 1.0.0".
std::string manualOfProgram(const DeclaredProgram& program, const std::string& version);

/// The manual page of a subcommand, such as quobrak-check(1).
std::string manualOfSubcommand(const DeclaredCommand& subcommand, const std::string& version);

}  // namespace quobrak::host
