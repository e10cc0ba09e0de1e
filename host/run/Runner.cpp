#include "host/run/Runner.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <utility>

#include "host/Subcommand.h"
#include "host/run/Files.h"
#include "host/run/IterationProgress.h"
#include "host/run/IterationResults.h"
#include "host/run/ScriptOrder.h"
#include "host/run/TraceFollower.h"

namespace quobrak::host {

namespace fs = std::filesystem;

namespace {

/// How the test process calls the script that it has built in, and how long that is.
const RunScript REFERENCE_SCRIPT{.suite = "TestReference", .name = "LaunchTest", .source = {}, .lineCount = 10};

std::vector<RunScript> scriptsOf(const RunPlan& plan) {
  switch (plan.kind) {
    case RunKind::command:
      return {{.suite = "", .name = plan.command, .source = {}, .lineCount = 1}};
    case RunKind::reference:
      return {REFERENCE_SCRIPT};
    case RunKind::scripts:
      break;
  }
  std::vector<RunScript> scripts;
  std::transform(plan.scripts.begin(), plan.scripts.end(), std::back_inserter(scripts),
                 [](const CollectedScript& script) { return script.script; });
  return scripts;
}

std::string variableOr(const EnvironmentVariables& variables, std::string_view name, std::string_view otherwise) {
  const auto variable = variables.find(name);
  return std::string(variable == variables.end() ? otherwise : variable->second);
}

RunRecord recordOf(const RunPlan& plan) {
  return {.kind = plan.kind,
          .folder = plan.folder,
          .scripts = scriptsOf(plan),
          .iterations = {},
          .plannedWarmUps = plan.warmUps,
          .plannedIterations = plan.iterations,
          .clock = variableOr(plan.environment, "QUOBRAK_CLOCK", "system"),
          .driver = variableOr(plan.environment, "QUOBRAK_DRIVER", "simulator"),
          .phone = variableOr(plan.environment, "QUOBRAK_PHONE", ""),
          .shuffleSeed = plan.shuffleSeed,
          .endedEarly = false};
}

bool hasPassed(const IterationRecord& iteration) {
  return iteration.outcome == IterationOutcome::finished &&
         std::all_of(iteration.scripts.begin(), iteration.scripts.end(),
                     [](const ScriptRecord& script) { return script.outcome == ScriptOutcome::passed; });
}

/// Whether a script failed, or passed with something missing.
bool hasFlaw(const IterationRecord& iteration) {
  return std::any_of(iteration.scripts.begin(), iteration.scripts.end(), [](const ScriptRecord& script) {
    return script.outcome != ScriptOutcome::passed || !script.stackTrace.empty();
  });
}

ExitStatus exitStatusOf(const IterationRecord& iteration) {
  switch (iteration.outcome) {
    case IterationOutcome::finished:
      return hasPassed(iteration) ? ExitStatus::success : ExitStatus::failed;
    case IterationOutcome::aborted:
    case IterationOutcome::interrupted:
      return ExitStatus::aborted;
    case IterationOutcome::failed:
    case IterationOutcome::misconfigured:
      break;
  }
  return ExitStatus::environmentFailed;
}

/// One run, as it goes on.
class Runner {
 public:
  Runner(const RunPlan& plan, Supervisor& supervisor, RunListener& listener)
      : plan_(plan),
        supervisor_(supervisor),
        listener_(listener),
        run_{.record = recordOf(plan), .endSignal = {}},
        warmUpOrder_(run_.record.scripts.size(), plan.shuffleSeed),
        // Of its own, so that a number gives the same orders however many warm-ups there are.
        order_(run_.record.scripts.size(), plan.shuffleSeed) {}

  FinishedRun carryOut() {
    RunRecord& record = run_.record;
    listener_.runStarted(record);
    for (const std::string& notice : plan_.notices) {
      listener_.notice(notice);
    }
    const std::size_t planned = plan_.warmUps + plan_.iterations;
    while (record.iterations.size() < planned && !run_.endSignal && mayGoOn()) {
      if (!record.iterations.empty()) {
        rest();
      }
      if (!run_.endSignal) {
        runIteration(record.iterations.size());
      }
    }
    record.endedEarly = record.iterations.size() < planned || run_.endSignal.has_value();
    listener_.runFinished(record);
    return std::move(run_);
  }

 private:
  bool mayGoOn() const {
    const std::vector<IterationRecord>& iterations = run_.record.iterations;
    if (iterations.empty()) {
      return true;
    }
    return exitStatusOf(iterations.back()) != ExitStatus::environmentFailed &&
           (!plan_.isFailFast || hasPassed(iterations.back()));
  }

  void rest() {
    if (plan_.rest > std::chrono::milliseconds::zero()) {
      listener_.restStarted(plan_.rest.count());
    }
    // Also where there is none: a signal may have come while the last results were collected.
    run_.endSignal = supervisor_.rest(plan_.rest, [this] { listener_.timePassed(); });
  }

  /// `index` counts all of them from 0.
  void runIteration(std::size_t index) {
    IterationRecord iteration = plannedIteration(index);
    listener_.iterationStarted(run_.record, iteration);
    try {
      runTestProcess(iteration);
    } catch (const EnvironmentError& error) {
      iteration.outcome = IterationOutcome::misconfigured;
      iteration.message = std::string("Could not be run: ") + error.what();
    }
    run_.record.iterations.push_back(std::move(iteration));
    listener_.iterationFinished(run_.record, run_.record.iterations.back());
  }

  IterationRecord plannedIteration(std::size_t index) {
    const bool isWarmUp = index < plan_.warmUps;
    const std::size_t number = isWarmUp ? index + 1 : index + 1 - plan_.warmUps;
    IterationRecord iteration;
    iteration.number = number;
    iteration.isWarmUp = isWarmUp;
    iteration.folder = isWarmUp ? fs::path("warmups") / numbered(number, plan_.warmUps)
                                : fs::path("iterations") / numbered(number, plan_.iterations);
    for (const std::size_t script : (isWarmUp ? warmUpOrder_ : order_).next()) {
      iteration.scripts.emplace_back().script = script;
    }
    return iteration;
  }

  /// Puts the scripts into the Documents directory.
  void placeScripts(const fs::path& documents) const {
    makeFolder(documents);
    for (std::size_t i = 0; i < plan_.scripts.size(); ++i) {
      const fs::path file = documents / placeOfScript(i, plan_.scripts.size(), plan_.scripts[i].fileName);
      makeFolder(file.parent_path());
      writeNewFile(file, plan_.scripts[i].bytes);
    }
  }

  ChildStart startOf(const IterationRecord& iteration, const fs::path& documents) const {
    IterationTask task{.kind = plan_.kind,
                       .iteration = iteration.isWarmUp ? 0 : iteration.number,
                       .scripts = {},
                       .command = plan_.command,
                       .documents = documents,
                       .trace = documents / TRACE_FILE};
    if (plan_.kind == RunKind::scripts) {
      for (const ScriptRecord& record : iteration.scripts) {
        const CollectedScript& script = plan_.scripts[record.script];
        task.scripts.push_back({.suite = script.script.suite,
                                .path = tellablePlaceOfScript(record.script, plan_.scripts.size(), script.fileName)});
      }
    }
    return {.executable = plan_.testProcess,
            .environment = iterationEnvironment(plan_.environment, task),
            .output = documents / OUTPUT_FILE};
  }

  void runTestProcess(IterationRecord& iteration) {
    const fs::path documents = fs::absolute(plan_.folder / iteration.folder);
    placeScripts(documents);
    if (plan_.kind == RunKind::command) {
      // A command leaves no events of a script in the trace.
      listener_.scriptStarted(0, 1);
    }
    TraceFollower trace(documents / TRACE_FILE);
    IterationProgress progress(iteration, listener_);
    const auto follow = [&] {
      for (const JSONValue& event : trace.read()) {
        progress.take(event);
      }
    };
    const ProcessEnd end = supervisor_.run(startOf(iteration, documents), [&] {
      follow();
      listener_.timePassed();
    });
    run_.endSignal = end.endSignal;
    follow();
    std::vector<std::string> notices = collectResults(run_.record, documents, end, progress, iteration);
    if (trace.unreadableLines() > 0) {
      notices.push_back("Lines of the trace that could not be read: " + std::to_string(trace.unreadableLines()));
    }
    if (iteration.outcome == IterationOutcome::finished && hasFlaw(iteration)) {
      endWhereNothingCanBeWritten(documents, iteration);
    }
    tellOfEndedScript(progress, iteration);
    for (const std::string& notice : notices) {
      listener_.notice(notice);
    }
  }

  /// Scripts fail, or lack pictures, where a disk is full; that is no fault of theirs, and the next iteration could do
  /// no better.
  static void endWhereNothingCanBeWritten(const fs::path& documents, IterationRecord& iteration) {
    // As much as a picture of a large screen takes.
    constexpr std::size_t ROOM = std::size_t{1} << 20;
    if (const std::string fault = writingFault(documents, ROOM); !fault.empty()) {
      iteration.outcome = IterationOutcome::failed;
      iteration.message = "Results can no longer be written: " + fault;
    }
  }

  /// Tells of the script whose end is no event of the trace.
  void tellOfEndedScript(const IterationProgress& progress, const IterationRecord& iteration) {
    const std::optional<std::size_t> position =
        plan_.kind == RunKind::command ? std::optional<std::size_t>(0) : progress.runningScript();
    if (position) {
      const ScriptRecord& script = iteration.scripts[*position];
      listener_.scriptFinished(script.script, script.outcome, script.cause);
    }
  }

  const RunPlan& plan_;
  Supervisor& supervisor_;
  RunListener& listener_;
  FinishedRun run_;
  ScriptOrder warmUpOrder_;
  ScriptOrder order_;
};

}  // namespace

FinishedRun carryOut(const RunPlan& plan, Supervisor& supervisor, RunListener& listener) {
  return Runner(plan, supervisor, listener).carryOut();
}

ExitStatus exitStatusOf(const FinishedRun& run) {
  if (run.endSignal) {
    return *run.endSignal == SIGINT ? ExitStatus::interrupted : ExitStatus::terminated;
  }
  // From the worst on.
  constexpr std::array ORDER{ExitStatus::environmentFailed, ExitStatus::aborted, ExitStatus::failed};
  const auto worst = std::find_if(ORDER.begin(), ORDER.end(), [&run](ExitStatus status) {
    return std::any_of(run.record.iterations.begin(), run.record.iterations.end(),
                       [status](const IterationRecord& iteration) { return exitStatusOf(iteration) == status; });
  });
  return worst == ORDER.end() ? ExitStatus::success : *worst;
}

}  // namespace quobrak::host
