#pragma once

#include <string>
#include <vector>

/// What users read of a command beside its row in the command table. In all of it, <label> stands for the argument of
/// that label as the script has it.
namespace quobrak::manual {

/// One way in which a command fails, or stops the process.
struct Failure {
  /// The words, letter for letter.
  std::string message;
  /// What is wrong then; Markdown, no full stop.
  std::string when;

  bool operator==(const Failure&) const = default;
};

struct CommandNote {
  std::string name;
  /// What the command does beyond its summary; Markdown, and may be empty.
  std::string description;
  /// What each argument is, in the order of the row's arguments; Markdown, no full stop.
  std::vector<std::string> arguments;
  /// What fails the script, besides malformed and missing arguments.
  std::vector<Failure> errors;
  /// What stops the process, besides missing arguments.
  std::vector<Failure> stops;
  /// Lines of a script that runs on the built-in phone.
  std::string example;
};

/// Commands that are told of together.
struct CommandGroup {
  std::string title;
  /// Markdown, and may be empty.
  std::string introduction;
  std::vector<CommandNote> notes;
};

}  // namespace quobrak::manual
