#include "host/program/Builtins.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <utility>

#include "host/program/BashCompletion.h"
#include "host/program/FishCompletion.h"
#include "host/program/HelpPage.h"
#include "host/program/UseErrors.h"
#include "host/program/ZshCompletion.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/ProcessInfo.h"

namespace quobrak::host {

namespace {

ExitStatus showHelp(const DeclaredProgram& program, const std::string& name) {
  constexpr int STANDARD_OUTPUT = 1;
  const Terminal terminal = terminalOf(STANDARD_OUTPUT, ProcessInfo::environmentVariable);
  if (name.empty()) {
    std::cout << helpOfProgram(program, terminal);
    return ExitStatus::success;
  }
  const DeclaredCommand* const subcommand = subcommandNamed(program, name);
  if (subcommand == nullptr) {
    throw UseError(unknownSubcommand(name, program));
  }
  std::cout << helpOfSubcommand(*subcommand, terminal);
  return ExitStatus::success;
}

struct Shell {
  const char* name;
  std::string (*script)(const DeclaredProgram& program);
};

constexpr std::array SHELLS{Shell{.name = "bash", .script = bashCompletion},
                            Shell{.name = "zsh", .script = zshCompletion},
                            Shell{.name = "fish", .script = fishCompletion}};

std::vector<std::string> shellNames() {
  std::vector<std::string> names(SHELLS.size());
  std::transform(SHELLS.begin(), SHELLS.end(), names.begin(), [](const Shell& shell) { return shell.name; });
  return names;
}

ExitStatus printCompletion(const DeclaredProgram& program, const std::string& name) {
  const auto* const shell =
      std::find_if(SHELLS.begin(), SHELLS.end(), [&name](const Shell& known) { return known.name == name; });
  std::cout << shell->script(program);
  return ExitStatus::success;
}

std::vector<ExitMeaning> simpleEnds() {
  return {{.status = ExitStatus::success, .meaning = "It was shown"},
          {.status = ExitStatus::badUse, .meaning = "The command line cannot be used"}};
}

}  // namespace

Subcommand helpSubcommand(WholeProgram program, std::vector<std::string> names) {
  return {.name = "help",
          .summary = "Shows help, of the program or of a subcommand",
          .description = {},
          .examples = {{.line = "quobrak help completion", .purpose = "all that can be told of that subcommand"}},
          .declare =
              [program = std::move(program)](CLI::App& app) {
                const auto name = std::make_shared<std::string>();
                app.add_option("SUBCOMMAND", *name, "Whose help; without it, that of the program");
                return [program, name] { return showHelp(program(), *name); };
              },
          .offeredValues = {{.option = "SUBCOMMAND", .values = std::move(names)}},
          .exitMeanings = simpleEnds()};
}

Subcommand completionSubcommand(WholeProgram program) {
  return {.name = "completion",
          .summary = "Prints the script that completes what is typed in a shell",
          .description =
              "The shell then completes subcommands, options, names, files and folders when the tabulator key is "
              "pressed. An installed quobrak has put these scripts where bash (with its package bash-completion), zsh "
              "and fish look for them. Otherwise add one of the lines below to what your shell reads when it starts.",
          .examples = {{.line = "source <(quobrak completion bash)", .purpose = "for ~/.bashrc"},
                       {.line = "source <(quobrak completion zsh)", .purpose = "for ~/.zshrc, below its compinit"},
                       {.line = "quobrak completion fish | source", .purpose = "for ~/.config/fish/config.fish"}},
          .declare =
              [program = std::move(program)](CLI::App& app) {
                const auto shell = std::make_shared<std::string>();
                app.add_option("SHELL", *shell, "For which shell")->required()->check(CLI::IsMember(shellNames()));
                return [program, shell] { return printCompletion(program(), *shell); };
              },
          .offeredValues = {},
          .exitMeanings = simpleEnds()};
}

}  // namespace quobrak::host
