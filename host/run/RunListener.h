#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "host/run/RunRecord.h"

namespace quobrak::host {

/// Is told how a run goes on, as it does. What it shows never keeps the test process waiting. `RunRecord` is the run's
/// own, still growing: its scripts and plans stand from the beginning.
class RunListener {
 public:
  virtual ~RunListener() = default;

  virtual void runStarted(const RunRecord& run) = 0;
  /// Before the test process of an iteration starts; the record has its number and the order of its scripts.
  virtual void iterationStarted(const RunRecord& run, const IterationRecord& iteration) = 0;
  /// `script` is the index in `RunRecord::scripts`; `position` counts from 1 in this iteration's order.
  virtual void scriptStarted(std::size_t script, std::size_t position) = 0;
  /// `time` is milliseconds since 1970 on the test process's clock.
  virtual void lineStarted(const RunLine& line, std::int64_t time) = 0;
  /// `error` is empty where the line went through.
  virtual void lineFinished(const RunLine& line, double milliseconds, std::string_view error) = 0;
  /// A measured step was stopped.
  virtual void stepFinished(const MeasuredStep& step) = 0;
  virtual void scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) = 0;
  virtual void iterationFinished(const RunRecord& run, const IterationRecord& iteration) = 0;
  /// The rest between two iterations begins; `milliseconds` on the machine's clock.
  virtual void restStarted(std::int64_t milliseconds) = 0;
  virtual void runFinished(const RunRecord& run) = 0;
  /// Called about ten times a second while the test process runs or the run rests, so that what counts can count.
  virtual void timePassed() = 0;
  /// Something a person should know: what was ended and why, what is kept where. One sentence.
  virtual void notice(std::string_view text) = 0;
};

}  // namespace quobrak::host
