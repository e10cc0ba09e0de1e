#include "tests/host/report/ToldRun.h"

#include "tests/host/report/SampleRun.h"

namespace quobrak::host {

namespace {

constexpr std::int64_t TIME = 1700000000000;

void tellScript(RunListener& listener, const ScriptRecord& script, std::size_t position) {
  listener.scriptStarted(script.script, position);
  listener.lineStarted({.number = 1, .text = "pressHome"}, TIME);
  listener.timePassed();
  listener.lineFinished({.number = 1, .text = "pressHome"}, 12, "");
  for (const MeasuredStep& step : script.steps) {
    listener.stepFinished(step);
  }
  if (script.line) {
    listener.lineStarted(*script.line, TIME);
  }
  if (script.outcome == ScriptOutcome::failed) {
    listener.lineFinished(*script.line, 12, script.cause);
  }
  listener.scriptFinished(script.script, script.outcome, script.cause);
}

void tellIteration(RunListener& listener, const RunRecord& run, const IterationRecord& iteration) {
  listener.iterationStarted(run, iteration);
  std::size_t position = 1;
  for (const ScriptRecord& script : iteration.scripts) {
    if (script.outcome != ScriptOutcome::notRun) {
      tellScript(listener, script, position++);
    }
  }
  listener.iterationFinished(run, iteration);
}

}  // namespace

void tellSampleRun(RunListener& listener) {
  constexpr std::int64_t REST = 2500;
  const RunRecord whole = sampleRun();
  RunRecord run = whole;
  run.iterations.clear();
  listener.runStarted(run);
  listener.notice("Earlier results are\x1b[2J kept.");
  for (const IterationRecord& iteration : whole.iterations) {
    if (!run.iterations.empty()) {
      listener.restStarted(REST);
      listener.timePassed();
    }
    run.iterations.push_back(iteration);
    tellIteration(listener, run, run.iterations.back());
  }
  listener.runFinished(run);
}

}  // namespace quobrak::host
