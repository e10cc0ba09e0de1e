#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "host/report/Statistics.h"
#include "host/run/RunListener.h"

namespace quobrak::host {

/// Keeps where a run is, and shows nothing. Displays derive from it; what they override calls this class's own first.
class RunFollower : public RunListener {
 public:
  void runStarted(const RunRecord& run) override;
  void iterationStarted(const RunRecord& run, const IterationRecord& iteration) override;
  void scriptStarted(std::size_t script, std::size_t position) override;
  void lineStarted(const RunLine& line, std::int64_t time) override;
  void lineFinished(const RunLine& line, double milliseconds, std::string_view error) override;
  void stepFinished(const MeasuredStep& step) override;
  void scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) override;
  void iterationFinished(const RunRecord& run, const IterationRecord& iteration) override;
  void restStarted(std::int64_t milliseconds) override;
  void runFinished(const RunRecord& run) override;
  void timePassed() override;
  void notice(std::string_view text) override;

 protected:
  const RunRecord& run() const { return *run_; }

  /// "Iteration 3 of 10", "Warm-up 1 of 2"; of the one that runs, or ran last.
  const std::string& iterationTitle() const { return iterationTitle_; }

  /// The line that runs or at which the script ended; none between two lines.
  const std::optional<RunLine>& line() const { return line_; }

  /// "Iteration 1 of 3: Shop/order failed: line 7: clickByText,Lamb: The expected text Lamb was not found".
  std::string resultLine(std::size_t script, ScriptOutcome outcome, std::string_view cause) const;

  /// "Iteration 2 of 3 finished after 12.3 s, 1 passed, 1 failed"; why, where it did not finish.
  std::string endLine(const IterationRecord& iteration) const;

 private:
  const RunRecord* run_ = nullptr;
  std::string iterationTitle_;
  std::optional<RunLine> line_;
};

/// What became of the scripts of one iteration.
OutcomeCounts outcomeCountsOf(const IterationRecord& iteration);

/// "3 passed, 1 failed": what there is.
std::string inWords(const OutcomeCounts& counts);

}  // namespace quobrak::host
