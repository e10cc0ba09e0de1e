#include "host/check/CheckCommand.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <utility>

#include "host/check/Checker.h"
#include "host/check/FindingsData.h"
#include "host/check/FindingsText.h"
#include "host/check/ScriptPaths.h"
#include "host/check/Variables.h"
#include "platform/foundation/ProcessInfo.h"

namespace quobrak::host {

namespace {

struct Options {
  std::vector<std::string> paths;
  VariableOptions variables;
  std::string format = "text";
  bool isQuiet = false;
  bool areWarningsErrors = false;
};

void print(const Options& options, const std::vector<Finding>& findings, const std::vector<ScriptSource>& scripts) {
  if (options.format == "json") {
    std::cout << asJSON(findings, scripts) << std::endl;
  } else if (options.format == "sarif") {
    std::cout << asSARIF(findings, scripts) << std::endl;
  } else {
    std::cout << inWords(findings, scripts, terminalOf(STDOUT_FILENO, ProcessInfo::environmentVariable));
    if (!options.isQuiet) {
      std::cout << summaryOf(findings, scripts.size()) << std::endl;
    }
  }
}

ExitStatus run(const Options& options) {
  const Variables variables = readVariables(options.variables, ProcessInfo::environmentVariable);
  const NamedScripts named = readScripts(options.paths);
  std::vector<Finding> findings = check(named.scripts, {.variables = variables, .isOrderKnown = named.isOrderKnown});
  if (options.areWarningsErrors) {
    for (Finding& finding : findings) {
      finding.severity = Severity::error;
    }
  }
  const ExitStatus status = countOf(findings, Severity::error) > 0 ? ExitStatus::failed : ExitStatus::success;
  if (options.isQuiet) {
    std::erase_if(findings, [](const Finding& finding) { return finding.severity == Severity::warning; });
  }
  print(options, findings, named.scripts);
  return status;
}

std::function<ExitStatus()> declare(CLI::App& app) {
  const auto options = std::make_shared<Options>();
  app.add_option("PATH", options->paths,
                 "Scripts, folders of scripts (all files below them that end in .txt), or - for standard input")
      ->required();
  declareVariableOptions(app, options->variables);
  app.add_option("--format", options->format,
                 "How findings are written: for people (text) or for programs (json, sarif)")
      ->check(CLI::IsMember({"text", "json", "sarif"}))
      ->capture_default_str();
  app.add_flag("-q,--quiet", options->isQuiet, "Tell of errors alone, without a summary");
  app.add_flag("--warnings-as-errors", options->areWarningsErrors, "Take each warning for an error");
  return [options] { return run(*options); };
}

}  // namespace

Subcommand checkSubcommand() {
  return {.name = "check",
          .summary = "Finds what is wrong with scripts, without running them",
          .description =
              "Every problem is told with its file, line and column, in the words of the run where the run has words "
              "for it, and with what would be right where that is known.\n"
              "\n"
              "Files are one run, in the order given: what one script starts, finds or measures is there for the next "
              "one. With a folder among the paths the order is not known, and what another script could give is a "
              "warning.\n"
              "\n"
              "Scripts know the variables of --var and --env-file, and no other ones: a check says the same on every "
              "machine.",
          .examples = {{"quobrak check login.txt", "Checks one script."},
                       {"quobrak check scripts --var PRODUCT=Lamp", "Checks all scripts of a folder, with a variable."},
                       {"quobrak check --format sarif scripts > check.sarif",
                        "Writes what services for code review can show beside the lines."}},
          .declare = declare,
          .offeredValues = {},
          .exitMeanings = {{.status = ExitStatus::success, .meaning = "No error was found"},
                           {.status = ExitStatus::failed, .meaning = "An error was found"},
                           {.status = ExitStatus::badUse, .meaning = "The command line cannot be used"},
                           {.status = ExitStatus::environmentFailed, .meaning = "A file or a folder cannot be read"}}};
}

}  // namespace quobrak::host
