#pragma once

#include <ostream>

#include "host/report/RunFollower.h"

namespace quobrak::host {

/// A line for each result of a script, each iteration, rest and notice: for files, other programs, and terminals that
/// cannot draw over lines.
class PlainProgress final : public RunFollower {
 public:
  /// `out` must outlive the listener.
  explicit PlainProgress(std::ostream& out) : out_(out) {}

  void scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) override;
  void iterationFinished(const RunRecord& run, const IterationRecord& iteration) override;
  void restStarted(std::int64_t milliseconds) override;
  void notice(std::string_view text) override;

 private:
  std::ostream& out_;
};

}  // namespace quobrak::host
