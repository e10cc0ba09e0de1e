#include "tests/host/report/SampleRun.h"

namespace quobrak::host {

namespace {

constexpr std::size_t ORDER = 0;
constexpr std::size_t LOGIN = 1;
constexpr std::size_t SETTINGS = 2;
constexpr std::int64_t START = 1700000000000;

MeasuredStep step(const std::string& name, std::int64_t duration) {
  return {.name = name, .start = START, .stop = START + duration, .duration = duration};
}

ScriptRecord passed(std::size_t script, std::vector<MeasuredStep> steps) {
  ScriptRecord record;
  record.script = script;
  record.outcome = ScriptOutcome::passed;
  record.started = START;
  record.duration = 1500;
  record.steps = std::move(steps);
  return record;
}

ScriptRecord failed(std::size_t script, std::vector<MeasuredStep> steps) {
  ScriptRecord record = passed(script, std::move(steps));
  record.outcome = ScriptOutcome::failed;
  record.line = RunLine{.number = 3, .text = "clickByText,Lamb"};
  record.cause = "The expected text Lamb was not found";
  record.stackTrace = "Error on line clickByText,Lamb (line: 3). Cause: The expected text Lamb was not found";
  return record;
}

ScriptRecord aborted(std::size_t script) {
  ScriptRecord record;
  record.script = script;
  record.outcome = ScriptOutcome::aborted;
  record.started = START;
  record.line = RunLine{.number = 5, .text = "clickByText"};
  record.cause = "Index out of range: the field 1 (selector) is missing";
  return record;
}

ScriptRecord notRun(std::size_t script) {
  ScriptRecord record;
  record.script = script;
  return record;
}

IterationRecord iteration(std::size_t number, std::vector<ScriptRecord> scripts) {
  IterationRecord record;
  record.number = number;
  record.folder = "iteration" + std::to_string(number);
  record.scripts = std::move(scripts);
  record.wallTime = std::chrono::microseconds(4500250);
  return record;
}

}  // namespace

RunRecord sampleRun() {
  RunRecord run;
  run.folder = "/home/anna/runs/today";
  run.scripts = {{.suite = "Shop", .name = "order", .source = "scripts/order.txt", .lineCount = 20},
                 {.suite = "Shop", .name = "login", .source = "scripts/login.txt", .lineCount = 6},
                 {.suite = "設定", .name = "settings", .source = "/elsewhere/settings.txt", .lineCount = 1}};
  run.plannedWarmUps = 1;
  run.plannedIterations = 3;
  run.clock = "virtual";
  run.driver = "simulator";
  run.shuffleSeed = 18446744073709551615U;

  IterationRecord warmUp =
      iteration(1, {passed(ORDER, {step("Show", 900)}), passed(LOGIN, {}), passed(SETTINGS, {step("Cold", 5)})});
  warmUp.isWarmUp = true;
  warmUp.folder = "warmUp1";
  IterationRecord last = iteration(3, {passed(ORDER, {}), aborted(LOGIN), notRun(SETTINGS)});
  last.outcome = IterationOutcome::aborted;
  last.message = "The test process stopped itself at line 5 of Shop/login: clickByText";
  run.iterations = {warmUp,
                    iteration(1, {passed(ORDER, {step("Show", 100), step("Pay", 7)}), failed(LOGIN, {step("Type", 1)}),
                                  passed(SETTINGS, {step("Show", 40)})}),
                    // Shuffled.
                    iteration(2, {passed(SETTINGS, {step("Show", 43)}), passed(LOGIN, {step("Type", 8)}),
                                  passed(ORDER, {step("Show", 103), step("Show", 110)})}),
                    last};
  return run;
}

}  // namespace quobrak::host
