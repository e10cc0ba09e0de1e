#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/program/Declarations.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// What `quobrak --help` shows: what the program is for, its subcommands, its options, and how it ends.
std::string helpOfProgram(const DeclaredProgram& program, const Terminal& terminal);

/// What `quobrak` alone shows: how it is used and what its subcommands are.
std::string shortHelp(const DeclaredProgram& program, const Terminal& terminal);

/// What `quobrak SUBCOMMAND --help` shows. It is broken for the terminal's width, but no wider than is good to read.
std::string helpOfSubcommand(const DeclaredCommand& subcommand, const Terminal& terminal);

/// "quobrak check [OPTION]... SCRIPT...", with what a line must have; of the program "quobrak SUBCOMMAND ...".
std::string usageOf(const DeclaredCommand& command);

/// "-q, --quiet", "--format text|json", "SCRIPT...".
std::string syntaxOf(const DeclaredOption& option);

/// Its help, with the names that it takes where neither the syntax nor the help tells them, and its preset value.
std::string explanationOf(const DeclaredOption& option);

/// What the command's ends mean: its own meanings, or what the program says of its ends in general.
std::vector<ExitMeaning> exitMeaningsOf(const DeclaredCommand& command);

/// The options of one heading.
struct OptionGroup {
  std::string heading;
  std::vector<DeclaredOption> options;
};

/// The options under their headings, in the order in which the headings are first met.
std::vector<OptionGroup> groupsOf(const std::vector<DeclaredOption>& options);

}  // namespace quobrak::host
