#pragma once

#include <span>
#include <string>

#include "host/program/Declarations.h"

namespace CLI {
class ParseError;
}

namespace quobrak::host {

/// What is wrong with the arguments, the program's name not among them, that the library refused with that error, and
/// what would be right: the nearest name of a subcommand, an option or a value, or where to read on. Complete sentences
/// without the program's name before and without a newline.
std::string explained(const CLI::ParseError& error, std::span<const std::string> arguments,
                      const DeclaredProgram& program);

/// "there is no subcommand chek; did you mean check?"
std::string unknownSubcommand(std::string_view written, const DeclaredProgram& program);

}  // namespace quobrak::host
