#include "host/program/Program.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <functional>
#include <iostream>

namespace quobrak::host {

namespace {

constexpr const char* NAME = "quobrak";
constexpr const char* VERSION = "quobrak " QUOBRAK_VERSION;
constexpr const char* SUMMARY = "Checks, rehearses and runs UI scripts for phones, and explains their commands.";

std::string footerOf(const Subcommand& subcommand) {
  std::string footer;
  if (!subcommand.description.empty()) {
    footer += "\n" + std::string(subcommand.description) + "\n";
  }
  if (!subcommand.examples.empty()) {
    footer += "\nExamples:\n";
  }
  for (const Example& example : subcommand.examples) {
    footer += "  " + std::string(example.line) + "\n      " + std::string(example.purpose) + "\n";
  }
  return footer;
}

/// The command line, with what to do for the subcommand that it names.
class CommandLine {
 public:
  explicit CommandLine(std::span<const Subcommand> subcommands) : app_(SUMMARY, NAME) {
    app_.set_version_flag("--version", VERSION, "Print the version and end");
    app_.require_subcommand(1);
    for (const Subcommand& subcommand : subcommands) {
      CLI::App& declared = *app_.add_subcommand(std::string(subcommand.name), std::string(subcommand.summary));
      declared.footer(footerOf(subcommand));
      actions_.emplace_back(&declared, subcommand.declare(declared));
    }
  }

  /// Throws what the library throws for arguments that cannot be used, and for a call for help.
  ExitStatus run(std::vector<std::string> arguments) {
    // The library takes them from the end.
    std::reverse(arguments.begin(), arguments.end());
    app_.parse(std::move(arguments));
    const auto chosen =
        std::find_if(actions_.begin(), actions_.end(), [](const auto& action) { return action.first->parsed(); });
    return chosen->second();
  }

  /// Of the subcommand that was named, or of the program.
  std::string help() const { return app_.help(); }

 private:
  CLI::App app_;
  std::vector<std::pair<const CLI::App*, std::function<ExitStatus()>>> actions_;
};

ExitStatus complain(const std::exception& error, ExitStatus status) {
  std::cerr << NAME << ": " << error.what() << std::endl;
  return status;
}

}  // namespace

ExitStatus runProgram(std::span<const Subcommand> subcommands, std::vector<std::string> arguments) {
  CommandLine commandLine(subcommands);
  try {
    return commandLine.run(std::move(arguments));
  } catch (const CLI::CallForHelp&) {
    std::cout << commandLine.help();
    return ExitStatus::success;
  } catch (const CLI::CallForVersion&) {
    std::cout << VERSION << std::endl;
    return ExitStatus::success;
  } catch (const CLI::ParseError& error) {
    return complain(error, ExitStatus::badUse);
  } catch (const UseError& error) {
    return complain(error, ExitStatus::badUse);
  } catch (const EnvironmentError& error) {
    return complain(error, ExitStatus::environmentFailed);
  }
}

}  // namespace quobrak::host
