#pragma once

#include <ostream>

#include "host/report/RunFollower.h"

namespace quobrak::host {

/// Shows only what goes wrong: scripts that fail or are aborted, iterations that do not finish. Notices are not shown:
/// what was ended badly is told of the iteration, and where things are kept is no trouble.
class QuietProgress final : public RunFollower {
 public:
  /// `err` must outlive the listener.
  explicit QuietProgress(std::ostream& err) : err_(err) {}

  void scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) override;
  void iterationFinished(const RunRecord& run, const IterationRecord& iteration) override;

 private:
  std::ostream& err_;
};

}  // namespace quobrak::host
