#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/Subcommand.h"

namespace CLI {
class App;
}

namespace quobrak::host {

/// What an option or an argument takes.
enum class ValueKind {
  /// Nothing: a flag.
  none,
  anything,
  file,
  folder,
  /// A file or a folder.
  path,
  /// One of `DeclaredOption::values`, and nothing else unless they are offered only.
  name
};

/// An option, or an argument that is known by its place.
struct DeclaredOption {
  /// As they are typed, short ones first: "-h", "--help". None for an argument.
  std::vector<std::string> names;
  /// What its value is called: "FOLDER", "system|virtual". Empty for a flag.
  std::string valueName;
  std::string help;
  /// The heading of the help under which it stands.
  std::string group;
  ValueKind kind = ValueKind::none;
  std::vector<std::string> values;
  /// The value that it has where nothing is told; empty where that is not known.
  std::string preset;
  bool isRequired = false;
  bool repeats = false;
};

/// The program, or one of its subcommands.
struct DeclaredCommand {
  /// As it is typed: "quobrak", "quobrak check".
  std::string line;
  /// The last word of it.
  std::string name;
  std::string summary;
  std::string description;
  std::vector<Example> examples;
  std::vector<ExitMeaning> exitMeanings;
  /// Help comes last.
  std::vector<DeclaredOption> options;
  std::vector<DeclaredOption> arguments;
};

/// All that can be typed, freed from the library that reads it. Help, completion and the manual pages are made of this.
struct DeclaredProgram {
  DeclaredCommand program;
  std::vector<DeclaredCommand> subcommands;
};

/// What is declared in `app`, which is the program's or a subcommand's; what the library cannot know is in
/// `subcommand`.
DeclaredCommand declaredCommand(const CLI::App& app, const Subcommand& subcommand, std::string_view line);

/// The option that goes by that name ("--format"), or the argument ("SCRIPT"); null where there is none.
const DeclaredOption* optionNamed(const DeclaredCommand& command, std::string_view name);

/// The subcommand of that name; null where there is none.
const DeclaredCommand* subcommandNamed(const DeclaredProgram& program, std::string_view name);

}  // namespace quobrak::host
