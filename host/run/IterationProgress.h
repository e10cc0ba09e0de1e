#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/run/RunListener.h"
#include "host/run/RunRecord.h"
#include "platform/foundation/JSON.h"

namespace quobrak::host {

/// A step as the trace tells it.
struct TracedStep {
  /// Which script stopped it: its index in `IterationRecord::scripts`.
  std::size_t position = 0;
  MeasuredStep step;
};

/// How far an iteration has come, by its trace. Fills in what the trace knows of each script and tells the listener.
class IterationProgress {
 public:
  /// `iteration` has its scripts in their order. Both must outlive this.
  IterationProgress(IterationRecord& iteration, RunListener& listener) : iteration_(iteration), listener_(listener) {}

  /// Takes in an event of the trace. One that is unknown, or is not as it should be, changes nothing.
  void take(const JSONValue& event);

  /// Where in `IterationRecord::scripts` the script is that has begun and not ended.
  std::optional<std::size_t> runningScript() const { return runningScript_; }
  /// The line of it that has begun and not ended; of no meaning where no script runs.
  const std::optional<RunLine>& runningLine() const { return runningLine_; }

  const std::vector<TracedStep>& steps() const { return steps_; }

 private:
  void takeKind(std::string_view kind, const JSONReader& event);
  void startScript(const JSONReader& event);
  void startLine(const JSONReader& event);
  void finishLine(const JSONReader& event);
  void finishScript(const JSONReader& event);

  IterationRecord& iteration_;
  RunListener& listener_;
  std::optional<std::size_t> runningScript_;
  std::optional<RunLine> runningLine_;
  std::vector<TracedStep> steps_;
};

}  // namespace quobrak::host
