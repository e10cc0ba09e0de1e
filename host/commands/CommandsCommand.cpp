#include "host/commands/CommandsCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <span>

#include "host/commands/CommandDocument.h"
#include "host/commands/CommandPages.h"
#include "host/terminal/NearestNames.h"
#include "host/terminal/Terminal.h"
#include "manual/CommandNotes.h"
#include "manual/DescribedCommands.h"
#include "platform/foundation/ProcessInfo.h"
#include "quobrakUITests/CommandTable.h"

namespace quobrak::host {

namespace {

struct Options {
  std::vector<std::string> names;
  std::string format = "text";
};

std::vector<std::string_view> allNames() {
  std::vector<std::string_view> names;
  for (const CommandRow& row : commandTable()) {
    names.push_back(row.name);
  }
  return names;
}

/// Throws for each of the names that is no command's.
void requireCommands(const std::vector<std::string>& names) {
  const std::vector<std::string_view> known = allNames();
  std::string faults;
  for (const std::string& name : names) {
    if (std::find(known.begin(), known.end(), name) == known.end()) {
      const std::string question = didYouMean(nearestNames(name, known));
      faults += (faults.empty() ? "" : "\n") + ("there is no command \"" + shown(name) + "\"; ") +
                (question.empty() ? "\"quobrak commands\" lists all" : question);
    }
  }
  if (!faults.empty()) {
    throw UseError(faults);
  }
}

/// What the names do not name is left out; nothing where there are none.
std::vector<manual::DescribedGroup> chosen(std::vector<manual::DescribedGroup> groups,
                                           const std::vector<std::string>& names) {
  for (manual::DescribedGroup& group : groups) {
    std::erase_if(group.commands, [&names](const manual::DescribedCommand& command) {
      return !names.empty() && std::find(names.begin(), names.end(), command.row.name) == names.end();
    });
  }
  return groups;
}

/// The pages, in the order of the names.
std::string pagesOf(const std::vector<manual::DescribedGroup>& groups, const std::vector<std::string>& names,
                    const Terminal& terminal) {
  std::string text;
  for (const std::string& name : names) {
    for (const manual::DescribedGroup& group : groups) {
      for (const manual::DescribedCommand& command : group.commands) {
        if (command.row.name == name) {
          text += (text.empty() ? "" : "\n\n") + commandPage(command, terminal);
        }
      }
    }
  }
  return text;
}

ExitStatus tellOfCommands(const Options& options) {
  requireCommands(options.names);
  const std::vector<manual::DescribedGroup> groups = manual::describedCommands(commandTable(), manual::commandNotes());
  const Terminal terminal = terminalOf(1, ProcessInfo::environmentVariable);
  if (options.format == "json") {
    std::cout << JSONEncoder::encode(commandDocument(chosen(groups, options.names))) << "\n";
  } else if (options.names.empty()) {
    std::cout << commandList(groups, terminal);
  } else {
    std::cout << pagesOf(groups, options.names, terminal);
  }
  return ExitStatus::success;
}

std::function<ExitStatus()> declare(CLI::App& app) {
  const auto options = std::make_shared<Options>();
  app.add_option("NAME", options->names, "The commands to explain, as scripts write them; without one, all are listed");
  app.add_option("--format", options->format, "For people (text) or for programs (json)")
      ->check(CLI::IsMember({"text", "json"}))
      ->capture_default_str();
  return [options] { return tellOfCommands(*options); };
}

}  // namespace

Subcommand commandsSubcommand() {
  const std::vector<std::string_view> names = allNames();
  return {
      .name = "commands",
      .summary = "Explains the commands of scripts",
      .description =
          "Without a name all commands are listed, in groups: how each is written, and what it does. With names, "
          "each is explained: its arguments and what they are when they are left out, what can go wrong and when, "
          "and an example that runs on the built-in phone.\n\n"
          "As json the answer is one document that docs/commands.schema.json describes; its texts are Markdown.",
      .examples = {{.line = "quobrak commands", .purpose = "all commands"},
                   {.line = "quobrak commands clickByText findByText", .purpose = "what these two do"},
                   {.line = "quobrak commands --format json", .purpose = "all that is known of all, for an editor"}},
      .declare = declare,
      .offeredValues = {{.option = "NAME", .values = {names.begin(), names.end()}}},
      .exitMeanings = {{.status = ExitStatus::success, .meaning = "The commands were explained"},
                       {.status = ExitStatus::badUse,
                        .meaning = "The command line cannot be used, or there is no command of a name"}}};
}

}  // namespace quobrak::host
