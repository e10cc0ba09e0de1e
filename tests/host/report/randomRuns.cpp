// Writes the results of runs that are made up: one folder for each, with what the program would write. Whoever works
// the figures out anew has them from there.
//
//     randomRuns FOLDER COUNT

#include <cstdint>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>

#include "host/report/Report.h"

namespace quobrak::host {
namespace {

/// The same on every machine: the engine's numbers are defined by the language, those of its distributions are not.
class Chance {
 public:
  explicit Chance(std::uint64_t seed) : engine_(seed) {}

  /// From 0 to `end`, without it.
  std::size_t below(std::size_t end) { return static_cast<std::size_t>(engine_() % end); }
  bool isOneIn(std::size_t count) { return below(count) == 0; }

  /// Durations of a few milliseconds, of hours, close to each other and far apart, and now and then one of a clock that
  /// was set back.
  std::int64_t duration() {
    constexpr std::int64_t HOUR = 3600000;
    const auto some = static_cast<std::int64_t>(below(1000));
    switch (below(6)) {
      case 0:
        return HOUR * 24 + some % 5;
      case 1:
        return some * some;
      case 2:
        return isOneIn(10) ? -some : some;
      default:
        return 1000 + some % 7;
    }
  }

  template <typename Item, std::size_t Count>
  const Item& oneOf(const Item (&items)[Count]) {
    return items[below(Count)];
  }

 private:
  std::mt19937_64 engine_;
};

MeasuredStep randomStep(Chance& chance) {
  const std::string names[] = {"Show", "Pay", "", "A step, with a comma", "設定", "\"\\/\x01"};
  constexpr std::int64_t START = 1700000000000;
  // One of them occurs often.
  MeasuredStep step{.name = chance.isOneIn(2) ? names[0] : chance.oneOf(names),
                    .start = START,
                    .stop = 0,
                    .duration = chance.duration()};
  step.stop = step.start + step.duration;
  return step;
}

ScriptRecord randomScript(Chance& chance, std::size_t index, bool isIterationFinished) {
  ScriptRecord script;
  script.script = index;
  const ScriptOutcome others[] = {ScriptOutcome::failed, ScriptOutcome::aborted, ScriptOutcome::notRun};
  script.outcome = chance.isOneIn(6) ? chance.oneOf(others) : ScriptOutcome::passed;
  if (script.outcome != ScriptOutcome::notRun) {
    script.started = 1700000000000;
    script.duration = chance.duration();
  }
  if (script.outcome == ScriptOutcome::failed) {
    script.line = RunLine{.number = 1 + chance.below(100), .text = "clickByText,<Lamb>"};
    script.cause = "not \xFF found";
    script.stackTrace = "Error on line";
  }
  // A few kept from an iteration that did not finish: they must not count.
  const bool hasSteps = isIterationFinished || chance.isOneIn(2);
  for (std::size_t count = hasSteps ? chance.below(6) : 0; count > 0; --count) {
    script.steps.push_back(randomStep(chance));
  }
  return script;
}

IterationRecord randomIteration(Chance& chance, std::size_t number, std::size_t scriptCount) {
  IterationRecord iteration;
  iteration.number = number;
  const IterationOutcome others[] = {IterationOutcome::aborted, IterationOutcome::failed,
                                     IterationOutcome::misconfigured, IterationOutcome::interrupted};
  const bool isFinished = !chance.isOneIn(8);
  iteration.outcome = isFinished ? IterationOutcome::finished : chance.oneOf(others);
  iteration.message = isFinished ? "" : "It ended.";
  iteration.folder = "iterations/" + std::to_string(number);
  iteration.wallTime = std::chrono::nanoseconds(chance.below(1'000'000'000'000));
  for (std::size_t i = 0; i < scriptCount; ++i) {
    iteration.scripts.push_back(randomScript(chance, i, isFinished));
  }
  std::swap(iteration.scripts.front(), iteration.scripts.at(chance.below(scriptCount)));
  return iteration;
}

RunRecord randomRun(Chance& chance) {
  RunRecord run;
  const RunKind kinds[] = {RunKind::scripts, RunKind::command, RunKind::reference};
  run.kind = chance.oneOf(kinds);
  const std::size_t scriptCount = 1 + chance.below(4);
  for (std::size_t i = 0; i < scriptCount; ++i) {
    run.scripts.push_back({.suite = i % 2 == 0 ? "Shop" : "設定",
                           .name = "script" + std::to_string(i),
                           .source = "scripts/a.txt",
                           .lineCount = chance.below(100)});
  }
  run.plannedWarmUps = chance.below(4);
  run.plannedIterations = 1 + chance.below(40);
  for (std::size_t i = 0; i < run.plannedWarmUps; ++i) {
    run.iterations.push_back(randomIteration(chance, i + 1, scriptCount));
    run.iterations.back().isWarmUp = true;
  }
  for (std::size_t i = 0; i < run.plannedIterations; ++i) {
    run.iterations.push_back(randomIteration(chance, i + 1, scriptCount));
  }
  run.clock = "virtual";
  run.driver = "simulator";
  if (chance.isOneIn(2)) {
    run.shuffleSeed = ~std::uint64_t{chance.below(1000)};
  }
  run.endedEarly = chance.isOneIn(5);
  return run;
}

void writeRuns(const std::filesystem::path& folder, std::size_t count) {
  Chance chance(count);
  for (std::size_t i = 0; i < count; ++i) {
    RunRecord run = randomRun(chance);
    run.folder = folder / std::to_string(i);
    std::filesystem::create_directories(run.folder);
    writeResults(run);
  }
}

}  // namespace
}  // namespace quobrak::host

int main(int argumentCount, char** arguments) {
  if (argumentCount != 3) {
    std::cerr << "randomRuns FOLDER COUNT\n";
    return 2;
  }
  quobrak::host::writeRuns(arguments[1], std::stoul(arguments[2]));
  return 0;
}
