#include "host/program/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "host/program/Builtins.h"

namespace quobrak::host {

namespace {

constexpr const char* NAME = "quobrak";

/// What the program says of itself, as if it were a subcommand.
Subcommand self() {
  return {.name = NAME,
          .summary = "Checks, rehearses and runs UI scripts for phones, and explains their commands",
          .description = {},
          .examples = {},
          .declare = {}};
}

}  // namespace

std::string programVersion() {
  return std::string(NAME) + " " + QUOBRAK_VERSION;
}

CommandLine::CommandLine(std::span<const Subcommand> subcommands)
    : app_(std::make_unique<CLI::App>(std::string(self().summary), NAME)) {
  app_->set_help_flag("-h,--help", "Show this help and end");
  app_->set_version_flag("--version", programVersion(), "Print the version and end");
  app_->require_subcommand(1);
  for (const Subcommand& subcommand : subcommands) {
    declare(subcommand);
  }
  const auto wholeProgram = [this]() -> const DeclaredProgram& { return program_; };
  declare(completionSubcommand(wholeProgram));
  std::vector<std::string> names;
  for (const DeclaredCommand& subcommand : program_.subcommands) {
    names.push_back(subcommand.name);
  }
  declare(helpSubcommand(wholeProgram, std::move(names)));
  program_.program = declaredCommand(*app_, self(), NAME);
}

CommandLine::~CommandLine() = default;

void CommandLine::declare(const Subcommand& subcommand) {
  CLI::App& app = *app_->add_subcommand(std::string(subcommand.name), std::string(subcommand.summary));
  entries_.push_back({.app = &app, .action = subcommand.declare(app)});
  program_.subcommands.push_back(
      declaredCommand(app, subcommand, std::string(NAME) + " " + std::string(subcommand.name)));
}

ExitStatus CommandLine::run(std::vector<std::string> arguments) {
  // The library takes them from the end.
  std::reverse(arguments.begin(), arguments.end());
  app_->parse(std::move(arguments));
  return parsedEntry()->action();
}

const DeclaredCommand* CommandLine::chosen() const {
  const auto entry = parsedEntry();
  return entry == entries_.end() ? nullptr
                                 : &program_.subcommands.at(static_cast<std::size_t>(entry - entries_.begin()));
}

std::vector<CommandLine::Entry>::const_iterator CommandLine::parsedEntry() const {
  return std::find_if(entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.app->parsed(); });
}

}  // namespace quobrak::host
