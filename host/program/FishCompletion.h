#pragma once

#include <string>

#include "host/program/Declarations.h"

namespace quobrak::host {

/// A script for fish that completes what is typed behind the program's name: subcommands, options, the names that they
/// take, files and folders.
std::string fishCompletion(const DeclaredProgram& program);

}  // namespace quobrak::host
