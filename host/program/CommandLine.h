#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host/Subcommand.h"
#include "host/program/Declarations.h"

namespace CLI {
class App;
}

namespace quobrak::host {

/// The command line of the program: the subcommands that it is given, and its own two, `completion` and `help`.
class CommandLine {
 public:
  explicit CommandLine(std::span<const Subcommand> subcommands);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  const DeclaredProgram& program() const { return program_; }

  /// Reads the arguments, the program's name not among them, and does what the subcommand says. Throws what the library
  /// throws for arguments that cannot be used, and for a call for help or for the version.
  ExitStatus run(std::vector<std::string> arguments);

  /// The subcommand that the arguments named; null where they named none.
  const DeclaredCommand* chosen() const;

 private:
  struct Entry {
    CLI::App* app;
    std::function<ExitStatus()> action;
  };

  void declare(const Subcommand& subcommand);
  std::vector<Entry>::const_iterator parsedEntry() const;

  std::unique_ptr<CLI::App> app_;
  /// In the order of `DeclaredProgram::subcommands`.
  std::vector<Entry> entries_;
  DeclaredProgram program_;
};

/// "quobrak 1.0.0"
std::string programVersion();

}  // namespace quobrak::host
