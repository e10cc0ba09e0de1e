#pragma once

#include <string>
#include <vector>

#include "host/Subcommand.h"
#include "host/program/Declarations.h"

namespace quobrak::host {

/// Two subcommands that do nothing: "paint", which declares an option of every kind, and "show", whose one argument is
/// offered some names.
std::vector<Subcommand> sampleSubcommands();

/// They, as the program declares them, with its own two.
const DeclaredProgram& sampleProgram();

/// "paint" of them.
const DeclaredCommand& samplePaint();

}  // namespace quobrak::host
