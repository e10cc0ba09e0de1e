#include "host/run/IterationResults.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "host/Subcommand.h"
#include "host/check/FileBytes.h"
#include "host/run/Measures.h"
#include "host/run/ProcessVerdict.h"
#include "quobrakUITests/TestStatus.h"

namespace quobrak::host {

namespace fs = std::filesystem;

namespace {

constexpr int EXIT_STATUS_FAILED = 1;

/// What the process printed; nothing where that could not be kept.
std::string outputIn(const fs::path& documents) {
  try {
    return fileBytes(documents / OUTPUT_FILE);
  } catch (const EnvironmentError&) {
    return "";
  }
}

/// Either the statuses, in the order of the scripts, or why there are none.
struct Statuses {
  std::optional<std::vector<TestStatus>> list;
  std::string fault;
};

Statuses readStatuses(const fs::path& documents, std::size_t expected) {
  std::vector<TestStatus> list;
  try {
    const JSONValue document = JSONDecoder::decode(fileBytes(documents / "testsStatus.json"));
    for (const JSONReader& element : JSONReader(document).elements()) {
      list.push_back(TestStatus::decode(element));
    }
  } catch (const EnvironmentError& error) {
    return {.list = {}, .fault = error.what()};
  } catch (const DecodingError& error) {
    return {.list = {}, .fault = std::string("testsStatus.json cannot be used: ") + error.what()};
  }
  if (list.size() != expected) {
    return {.list = {},
            .fault = "testsStatus.json has a status for " + std::to_string(list.size()) + " scripts, and " +
                     std::to_string(expected) + " were run"};
  }
  return {.list = std::move(list), .fault = {}};
}

void takeStatuses(const std::vector<TestStatus>& statuses, std::vector<ScriptRecord>& scripts) {
  for (std::size_t i = 0; i < scripts.size(); ++i) {
    scripts[i].outcome = statuses[i].status == "success" ? ScriptOutcome::passed : ScriptOutcome::failed;
    scripts[i].stackTrace = statuses[i].stackTrace;
  }
}

/// The script in which the process ended.
void endScript(ScriptRecord& script, const std::optional<RunLine>& line, const std::string& cause) {
  script.outcome = ScriptOutcome::aborted;
  script.cause = cause;
  script.line = line;
}

std::string titleOf(const RunScript& script) {
  return script.suite.empty() ? script.name : script.suite + "/" + script.name;
}

ProcessPlace placeOf(const RunRecord& run, const IterationRecord& iteration, const IterationProgress& progress) {
  if (!progress.runningScript()) {
    return {};
  }
  const RunScript& script = run.scripts.at(iteration.scripts.at(*progress.runningScript()).script);
  return {.script = titleOf(script), .line = progress.runningLine()};
}

/// Whether the trace tells of the end of each script. A test process that cannot write it any more runs on without it.
bool isTraceWhole(const IterationRecord& iteration) {
  return std::all_of(iteration.scripts.begin(), iteration.scripts.end(),
                     [](const ScriptRecord& script) { return script.duration.has_value(); });
}

/// A command leaves no statuses: it passed where the process did, and failed where the process raised.
void takeCommand(const RunScript& command, const ProcessEnd& end, std::string_view output, IterationRecord& iteration) {
  ScriptRecord& script = iteration.scripts.front();
  if (end.how.exitStatus == EXIT_STATUS_FAILED) {
    script.outcome = ScriptOutcome::failed;
    script.cause = caughtErrorIn(output);
    return;
  }
  ProcessVerdict verdict = verdictOf(end, output, {.script = titleOf(command), .line = std::nullopt});
  if (verdict.outcome == IterationOutcome::finished) {
    script.outcome = ScriptOutcome::passed;
  } else if (verdict.outcome != IterationOutcome::misconfigured) {
    endScript(script, std::nullopt, verdict.cause);
  }
  iteration.outcome = verdict.outcome;
  iteration.message = std::move(verdict.message);
}

}  // namespace

std::vector<std::string> collectResults(const RunRecord& run, const fs::path& documents, const ProcessEnd& end,
                                        const IterationProgress& progress, IterationRecord& iteration) {
  iteration.wallTime = end.wallTime;
  const std::string output = outputIn(documents);
  if (run.kind == RunKind::command) {
    takeCommand(run.scripts.front(), end, output, iteration);
    return {};
  }
  ProcessVerdict verdict = verdictOf(end, output, placeOf(run, iteration, progress));
  const Statuses statuses = readStatuses(documents, iteration.scripts.size());
  if (statuses.list) {
    takeStatuses(*statuses.list, iteration.scripts);
  } else if (verdict.outcome == IterationOutcome::finished) {
    verdict = {.outcome = IterationOutcome::failed,
               .message = "The test process ended as if all were well, but left no results: " + statuses.fault,
               .cause = "The test process left no results"};
  }
  if (progress.runningScript() && !statuses.list) {
    endScript(iteration.scripts.at(*progress.runningScript()), progress.runningLine(), verdict.cause);
  }
  iteration.outcome = verdict.outcome;
  iteration.message = std::move(verdict.message);
  std::vector<std::string> notices;
  if (iteration.outcome == IterationOutcome::finished && !isTraceWhole(iteration)) {
    notices.push_back("The trace of this iteration is incomplete; what could not be written is told in " +
                      (iteration.folder / OUTPUT_FILE).string());
  }
  assignMeasures(readMeasures(documents / "measures", notices), progress.steps(), iteration, notices);
  return notices;
}

}  // namespace quobrak::host
