#pragma once

#include <functional>

#include "host/Subcommand.h"
#include "host/program/Declarations.h"

namespace quobrak::host {

/// Asked when a subcommand runs: all that is declared, that subcommand among it.
using WholeProgram = std::function<const DeclaredProgram&()>;

/// `quobrak help [SUBCOMMAND]`.
Subcommand helpSubcommand(WholeProgram program, std::vector<std::string> names);

/// `quobrak completion SHELL`.
Subcommand completionSubcommand(WholeProgram program);

}  // namespace quobrak::host
