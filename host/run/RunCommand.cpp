#include "host/run/RunCommand.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ctime>
#include <iostream>
#include <memory>
#include <utility>

#include "host/check/Checker.h"
#include "host/check/FindingsText.h"
#include "host/report/Progress.h"
#include "host/report/Report.h"
#include "host/run/EndSignals.h"
#include "host/run/OutputFolder.h"
#include "host/run/RunOptions.h"
#include "host/run/Runner.h"
#include "host/run/TestProcessLocation.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/ProcessInfo.h"

namespace quobrak::host {

namespace {

constexpr const char* DESCRIPTION =
    "Each iteration is a test process of its own, with a Documents directory of its own in the output folder. What it\n"
    "leaves stays there: measures, statuses, pictures, dumps, a trace of all that happened, and what it printed.\n"
    "\n"
    "Where --driver, --phone, --clock or --test-process is not used, QUOBRAK_DRIVER, QUOBRAK_PHONE, QUOBRAK_CLOCK or\n"
    "QUOBRAK_TEST_PROCESS of the environment counts.";

/// The plan but for the folder.
RunPlan planOf(const RunOptions& options, const Variables& variables, const EnvironmentVariables& own) {
  ScriptCollection collection = collectScripts(options.scripts, options.suite);
  const TestProcessSettings settings{.driver = options.driver, .clock = options.clock, .phone = options.phone};
  return {.kind = options.kind(),
          .scripts = std::move(collection.scripts),
          .command = options.command.value_or(""),
          .warmUps = options.warmUps,
          .iterations = options.iterations,
          .rest = options.rest,
          .shuffleSeed = options.shuffleSeed,
          .isFailFast = options.isFailFast,
          .testProcess = locateTestProcess(options.testProcess, own, folderOfThisProgram()),
          .environment = commonEnvironment(own, {variables.begin(), variables.end()}, settings),
          .folder = {},
          .notices = std::move(collection.notices)};
}

OutputFolder outputFolderOf(const RunOptions& options) {
  if (options.out) {
    return OutputFolder::chosen(*options.out);
  }
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  return OutputFolder::dated("quobrak-results", local);
}

/// What is left of a run stays readable also where its files cannot be written any more.
void report(const RunRecord& record, const Terminal& terminal, bool isQuiet) {
  const auto summarise = [&] {
    if (!isQuiet) {
      printSummary(record, terminal, std::cout);
    }
  };
  try {
    writeResults(record);
  } catch (const EnvironmentError&) {
    summarise();
    throw;
  }
  summarise();
}

/// Whether a run would begin, and end.
bool canBeRun(const std::vector<Finding>& findings) {
  return std::none_of(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.outcome == Outcome::preventsRun || finding.outcome == Outcome::neverEnds;
  });
}

/// Tells what is wrong with the scripts, and whether they can be run.
bool passCheck(const RunPlan& plan, const Variables& variables, bool isQuiet) {
  std::vector<ScriptSource> sources;
  std::transform(plan.scripts.begin(), plan.scripts.end(), std::back_inserter(sources),
                 [](const CollectedScript& script) {
                   return ScriptSource{.name = script.script.source.string(), .bytes = script.bytes};
                 });
  std::vector<Finding> findings = check(sources, {.variables = variables, .isOrderKnown = !plan.shuffleSeed});
  const bool isFlawed = countOf(findings, Severity::error) > 0;
  if (isQuiet) {
    std::erase_if(findings, [](const Finding& finding) { return finding.severity == Severity::warning; });
  }
  std::cerr << inWords(findings, sources, terminalOf(STDERR_FILENO, ProcessInfo::environmentVariable));
  if (isFlawed) {
    std::cerr << summaryOf(findings, sources.size()) << ". Nothing was run"
              << (canBeRun(findings) ? "; --no-check runs the scripts all the same." : ".") << std::endl;
  }
  return !isFlawed;
}

ExitStatus run(const RunOptions& options) {
  const EnvironmentVariables own = ownEnvironment();
  requireUsable(options, own);
  const Variables variables = readVariables(options.variables, ProcessInfo::environmentVariable);
  RunPlan plan = planOf(options, variables, own);
  if (!options.isUnchecked && !passCheck(plan, variables, options.isQuiet)) {
    return ExitStatus::failed;
  }
  EndSignals signals;
  const OutputFolder folder = outputFolderOf(options);
  plan.folder = folder.path();
  ProcessSupervisor supervisor(signals);
  const Terminal terminal = terminalOf(STDOUT_FILENO, ProcessInfo::environmentVariable);
  const std::unique_ptr<RunListener> listener = progressFor(terminal, options.isQuiet, std::cout, std::cerr);
  const FinishedRun finished = carryOut(plan, supervisor, *listener);
  report(finished.record, terminal, options.isQuiet);
  const ExitStatus status = exitStatusOf(finished);
  if (options.isQuiet && status != ExitStatus::success) {
    std::cerr << "Results: " << shown(folder.path().native()) << std::endl;
  }
  return status;
}

}  // namespace

Subcommand runSubcommand() {
  return {.name = "run",
          .summary = "Runs scripts, on the simulated phone or a real one, and keeps their results",
          .description = DESCRIPTION,
          .examples = {{.line = "quobrak run --clock virtual --var PRODUCT=Lamp examples/shop/order.txt",
                        .purpose = "rehearses a script: its pauses take no time"},
                       {.line = "quobrak run --driver webdriver --warmup 1 --iterations 30 --rest 2min scripts/",
                        .purpose = "measures all scripts of a folder thirty times on a real phone"},
                       {.line = "quobrak run --command pause,100", .purpose = "runs a single command"},
                       {.line = "quobrak run --reference", .purpose = "runs the built-in reference script"}},
          .declare = [](CLI::App& app) -> std::function<ExitStatus()> {
            const auto options = std::make_shared<RunOptions>();
            declareRunOptions(app, *options);
            return [options] { return run(*options); };
          }};
}

}  // namespace quobrak::host
