#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/ExitStatus.h"

namespace CLI {
class App;
}

namespace quobrak::host {

/// Arguments that cannot be used though each of them is well formed: says what is wrong and what would be right. The
/// program ends with `ExitStatus::badUse`.
class UseError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What the program needs around it failed: a file, a folder, a disk, a process. Says what, where and why. The program
/// ends with `ExitStatus::environmentFailed`.
class EnvironmentError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// One line that a person could type, and what it is for.
struct Example {
  std::string_view line;
  std::string_view purpose;
};

/// What may stand for an argument or for the value of an option, where the library's own checks (`CLI::IsMember`,
/// `CLI::ExistingFile`, `CLI::ExistingDirectory`, `CLI::ExistingPath`) do not say it: names that completion offers and
/// nothing refuses.
struct OfferedValues {
  /// The argument ("COMMAND") or the option ("--theme"), as it is declared.
  std::string_view option;
  std::vector<std::string> values;
};

/// When a subcommand ends with a status, where that can be said better than for the whole program.
struct ExitMeaning {
  ExitStatus status;
  std::string_view meaning;
};

/// What follows the program's name: "check" in "quobrak check". Help, completion and the manual pages are made of it
/// and of the options that it declares.
struct Subcommand {
  std::string_view name;
  /// What it does, in one line, without a full stop.
  std::string_view summary;
  /// What a person wants to know beyond the options: paragraphs of plain text, an empty line between two.
  std::string_view description;
  std::vector<Example> examples;
  /// Declares its options and arguments, and answers with what to do once they are read.
  std::function<std::function<ExitStatus()>(CLI::App& app)> declare;
  std::vector<OfferedValues> offeredValues = {};
  /// How it can end, in the order in which it is told; what the program says of its ends in general, where empty.
  std::vector<ExitMeaning> exitMeanings = {};
};

}  // namespace quobrak::host
