#include "host/report/LiveProgress.h"

#include <algorithm>

#include "host/report/LineMeaning.h"
#include "host/report/RunWords.h"

namespace quobrak::host {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds BETWEEN_DRAWINGS = 100ms;
/// A shorter pause is over before anybody has read how long it takes.
constexpr std::chrono::milliseconds SHORTEST_COUNTED_PAUSE = 1s;

}  // namespace

LiveProgress::LiveProgress(const Terminal& terminal, std::ostream& out, const Clock& clock)
    : terminal_(terminal), clock_(clock), live_(out) {}

void LiveProgress::runStarted(const RunRecord& run) {
  RunFollower::runStarted(run);
  timeLeft_ = TimeLeft(run.plannedWarmUps + run.plannedIterations);
  isRunning_ = true;
}

void LiveProgress::iterationStarted(const RunRecord& run, const IterationRecord& iteration) {
  RunFollower::iterationStarted(run, iteration);
  timeLeft_.iterationStarted(clock_.now());
  scriptsOfIteration_ = iteration.scripts.size();
  script_.reset();
  pauseEnd_.reset();
  step_.reset();
  restEnd_.reset();
}

void LiveProgress::scriptStarted(std::size_t script, std::size_t position) {
  RunFollower::scriptStarted(script, position);
  script_ = {.script = script, .position = position};
}

void LiveProgress::lineStarted(const RunLine& line, std::int64_t time) {
  RunFollower::lineStarted(line, time);
  const LineMeaning meaning = meaningOf(line.text);
  if (isInRealTime() && meaning.pause.value_or(0ms) >= SHORTEST_COUNTED_PAUSE) {
    pauseEnd_ = clock_.now() + *meaning.pause;
  }
}

void LiveProgress::lineFinished(const RunLine& line, double milliseconds, std::string_view error) {
  RunFollower::lineFinished(line, milliseconds, error);
  pauseEnd_.reset();
  if (!error.empty()) {
    return;
  }
  const LineMeaning meaning = meaningOf(line.text);
  if (meaning.begunStep) {
    step_ = {.name = *meaning.begunStep, .start = clock_.now()};
  }
  if (meaning.endsStep) {
    step_.reset();
  }
}

void LiveProgress::scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) {
  RunFollower::scriptFinished(script, outcome, cause);
  running_.count(outcome);
  if (outcome == ScriptOutcome::failed || outcome == ScriptOutcome::aborted) {
    lastFailure_ = resultLine(script, outcome, cause);
  }
}

void LiveProgress::iterationFinished(const RunRecord& run, const IterationRecord& iteration) {
  RunFollower::iterationFinished(run, iteration);
  timeLeft_.iterationFinished(clock_.now());
  // The record knows also of scripts that nobody was told of.
  finished_ += outcomeCountsOf(iteration);
  running_ = {};
  script_.reset();
  step_.reset();
  if (iteration.outcome != IterationOutcome::finished) {
    live_.print(terminal_.styled(Style::red, endLine(iteration)));
  }
}

void LiveProgress::restStarted(std::int64_t milliseconds) {
  RunFollower::restStarted(milliseconds);
  const std::chrono::milliseconds duration(milliseconds);
  timeLeft_.restStarted(clock_.now(), duration);
  restEnd_ = clock_.now() + duration;
}

void LiveProgress::runFinished(const RunRecord& run) {
  RunFollower::runFinished(run);
  isRunning_ = false;
  live_.erase();
}

void LiveProgress::timePassed() {
  const Clock::TimePoint now = clock_.now();
  if (!isRunning_ || (lastDrawn_ && now - *lastDrawn_ < BETWEEN_DRAWINGS)) {
    return;
  }
  lastDrawn_ = now;
  // The last column stays free, as the lines ask for.
  const std::size_t columns = std::max<std::size_t>(terminal_.width, 1) - 1;
  std::vector<std::string> drawn;
  for (const StyledLine& line : lines(now)) {
    drawn.push_back(line.fitted(terminal_, columns));
  }
  live_.draw(drawn);
}

void LiveProgress::notice(std::string_view text) {
  RunFollower::notice(text);
  live_.print(shown(text));
}

std::vector<StyledLine> LiveProgress::lines(Clock::TimePoint now) const {
  std::vector<StyledLine> lines{placeLine(now)};
  if (script_) {
    lines.push_back(scriptLine());
    lines.push_back(waitingLine(now));
  }
  lines.push_back(countsLine(now));
  if (!lastFailure_.empty()) {
    lines.push_back(StyledLine().add(Style::red, lastFailure_));
  }
  std::erase_if(lines, [](const StyledLine& line) { return line.isEmpty(); });
  return lines;
}

/// "Iteration 3 of 10, script 2 of 5: Shop/order"
StyledLine LiveProgress::placeLine(Clock::TimePoint now) const {
  StyledLine line;
  line.add(Style::bold, iterationTitle());
  if (restEnd_) {
    line.add(Style::plain, " is over. Rest: " + countdownInWords(*restEnd_ - now) + " left");
  } else if (script_) {
    line.add(Style::plain, ", script " + std::to_string(script_->position) + " of " +
                               std::to_string(scriptsOfIteration_) + ": " + titleOf(run(), script_->script));
  }
  return line;
}

/// "line 7 of 20: clickByText,Browse products"; a single command is no script with lines to count.
StyledLine LiveProgress::scriptLine() const {
  StyledLine text;
  if (line()) {
    const std::size_t lineCount = run().scripts.at(script_->script).lineCount;
    const std::string_view command = meaningOf(line()->text).command;
    text.add(Style::dim, "line " + std::to_string(line()->number) +
                             (lineCount == 0 ? "" : " of " + std::to_string(lineCount)) + ": ");
    text.add(Style::blue, command);
    text.add(Style::plain, std::string_view(line()->text).substr(command.size()));
  }
  return text;
}

/// "pause: 8 s left, step ShowProducts: 3 s". Of virtual time a display has no count.
StyledLine LiveProgress::waitingLine(Clock::TimePoint now) const {
  StyledLine text;
  if (pauseEnd_) {
    text.add(Style::plain, "pause: " + countdownInWords(*pauseEnd_ - now) + " left");
  }
  if (step_) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now - step_->start);
    text.add(Style::plain, (text.isEmpty() ? "step " : ", step ") + step_->name +
                               (isInRealTime() ? ": " + countdownInWords(seconds) : ""));
  }
  return text;
}

/// "3 passed, 1 failed, about 4 min 05 s left"
StyledLine LiveProgress::countsLine(Clock::TimePoint now) const {
  OutcomeCounts counts = finished_;
  counts += running_;
  StyledLine text;
  text.add(counts.failed + counts.aborted > 0 ? Style::red : Style::green, inWords(counts));
  if (const std::optional<std::chrono::nanoseconds> left = timeLeft_.at(now)) {
    text.add(Style::plain, (text.isEmpty() ? "about " : ", about ") + countdownInWords(*left) + " left");
  }
  return text;
}

}  // namespace quobrak::host
