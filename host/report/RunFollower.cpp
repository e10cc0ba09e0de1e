#include "host/report/RunFollower.h"

#include <array>
#include <utility>

#include "host/report/RunWords.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

void RunFollower::runStarted(const RunRecord& run) {
  run_ = &run;
}

void RunFollower::iterationStarted(const RunRecord& run, const IterationRecord& iteration) {
  const std::size_t planned = iteration.isWarmUp ? run.plannedWarmUps : run.plannedIterations;
  iterationTitle_ = (iteration.isWarmUp ? "Warm-up " : "Iteration ") + std::to_string(iteration.number) + " of " +
                    std::to_string(planned);
  line_.reset();
}

void RunFollower::scriptStarted(std::size_t, std::size_t) {
  line_.reset();
}

void RunFollower::lineStarted(const RunLine& line, std::int64_t) {
  line_ = line;
}

void RunFollower::lineFinished(const RunLine&, double, std::string_view error) {
  if (error.empty()) {
    line_.reset();
  }
}

void RunFollower::stepFinished(const MeasuredStep&) {}
void RunFollower::scriptFinished(std::size_t, ScriptOutcome, std::string_view) {}
void RunFollower::iterationFinished(const RunRecord&, const IterationRecord&) {}
void RunFollower::restStarted(std::int64_t) {}
void RunFollower::runFinished(const RunRecord&) {}
void RunFollower::timePassed() {}
void RunFollower::notice(std::string_view) {}

std::string RunFollower::resultLine(std::size_t script, ScriptOutcome outcome, std::string_view cause) const {
  const std::string result = iterationTitle_ + ": " + titleOf(*run_, script) + " " + std::string(inWords(outcome));
  const bool hasFailed = outcome == ScriptOutcome::failed || outcome == ScriptOutcome::aborted;
  const std::string failure = hasFailed ? failureIn(line_, cause) : "";
  return failure.empty() ? result : result + ": " + failure;
}

std::string RunFollower::endLine(const IterationRecord& iteration) const {
  const std::string counts = inWords(outcomeCountsOf(iteration));
  return iterationTitle_ + " " + std::string(nameOf(iteration.outcome)) + " after " +
         durationInWords(iteration.wallTime) + (counts.empty() ? "" : ", " + counts) +
         (iteration.message.empty() ? "" : ": " + shown(iteration.message));
}

OutcomeCounts outcomeCountsOf(const IterationRecord& iteration) {
  OutcomeCounts counts;
  for (const ScriptRecord& script : iteration.scripts) {
    counts.count(script.outcome);
  }
  return counts;
}

std::string inWords(const OutcomeCounts& counts) {
  std::string words;
  for (const auto& [count, outcome] : {std::pair(counts.passed, ScriptOutcome::passed),
                                       {counts.failed, ScriptOutcome::failed},
                                       {counts.aborted, ScriptOutcome::aborted},
                                       {counts.notRun, ScriptOutcome::notRun}}) {
    if (count > 0) {
      words += (words.empty() ? "" : ", ") + std::to_string(count) + " " + std::string(inWords(outcome));
    }
  }
  return words;
}

}  // namespace quobrak::host
