#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "host/report/LiveLines.h"
#include "host/report/RunFollower.h"
#include "host/report/StyledLine.h"
#include "host/report/TimeLeft.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/Clock.h"

namespace quobrak::host {

/// A few lines on a terminal that show where the run is, and that are gone when it is over. They are drawn when time
/// passes, ten times a second at most: a script on virtual time is through in milliseconds. Notices, and why an
/// iteration did not finish, are printed above at once and stay.
class LiveProgress final : public RunFollower {
 public:
  /// `out` leads to the terminal. It and the clock, which counts down what is to come, must outlive the listener.
  LiveProgress(const Terminal& terminal, std::ostream& out, const Clock& clock);

  void runStarted(const RunRecord& run) override;
  void iterationStarted(const RunRecord& run, const IterationRecord& iteration) override;
  void scriptStarted(std::size_t script, std::size_t position) override;
  void lineStarted(const RunLine& line, std::int64_t time) override;
  void lineFinished(const RunLine& line, double milliseconds, std::string_view error) override;
  void scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) override;
  void iterationFinished(const RunRecord& run, const IterationRecord& iteration) override;
  void restStarted(std::int64_t milliseconds) override;
  void runFinished(const RunRecord& run) override;
  void timePassed() override;
  void notice(std::string_view text) override;

 private:
  struct RunningScript {
    std::size_t script = 0;
    std::size_t position = 0;
  };
  struct OpenStep {
    std::string name;
    Clock::TimePoint start;
  };

  std::vector<StyledLine> lines(Clock::TimePoint now) const;
  StyledLine placeLine(Clock::TimePoint now) const;
  StyledLine scriptLine() const;
  StyledLine waitingLine(Clock::TimePoint now) const;
  StyledLine countsLine(Clock::TimePoint now) const;
  bool isInRealTime() const { return run().clock == "system"; }

  Terminal terminal_;
  const Clock& clock_;
  LiveLines live_;
  std::optional<Clock::TimePoint> lastDrawn_;
  bool isRunning_ = false;

  TimeLeft timeLeft_;
  std::size_t scriptsOfIteration_ = 0;
  std::optional<RunningScript> script_;
  std::optional<Clock::TimePoint> pauseEnd_;
  std::optional<OpenStep> step_;
  std::optional<Clock::TimePoint> restEnd_;
  /// Of the iterations that are over, and of the one that runs.
  OutcomeCounts finished_;
  OutcomeCounts running_;
  std::string lastFailure_;
};

}  // namespace quobrak::host
