#pragma once

#include <string>
#include <vector>

#include "host/run/RunListener.h"

namespace quobrak::host {

/// Keeps in words what it is told.
class RecordedListener final : public RunListener {
 public:
  void runStarted(const RunRecord& run) override {
    add("run of " + std::to_string(run.plannedIterations) + " iterations");
  }
  void iterationStarted(const RunRecord&, const IterationRecord& iteration) override {
    add("iteration " + std::to_string(iteration.number) + (iteration.isWarmUp ? " (warm-up)" : ""));
  }
  void scriptStarted(std::size_t script, std::size_t position) override {
    add("script " + std::to_string(script) + " at " + std::to_string(position));
  }
  void lineStarted(const RunLine& line, std::int64_t time) override {
    add("line " + std::to_string(line.number) + " " + line.text + " from " + std::to_string(time));
  }
  void lineFinished(const RunLine& line, double milliseconds, std::string_view error) override {
    add("line " + std::to_string(line.number) + " took " + std::to_string(static_cast<std::int64_t>(milliseconds)) +
        (error.empty() ? "" : ": " + std::string(error)));
  }
  void stepFinished(const MeasuredStep& step) override { add("step " + step.name); }
  void scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) override {
    add("script " + std::to_string(script) + (outcome == ScriptOutcome::passed ? " passed" : " did not pass") +
        (cause.empty() ? "" : ": " + std::string(cause)));
  }
  void iterationFinished(const RunRecord&, const IterationRecord& iteration) override {
    add("end of iteration " + std::to_string(iteration.number) +
        (iteration.message.empty() ? "" : ": " + iteration.message));
  }
  void restStarted(std::int64_t milliseconds) override { add("rest of " + std::to_string(milliseconds)); }
  void runFinished(const RunRecord& run) override { add(run.endedEarly ? "early end" : "end"); }
  void timePassed() override { add("time passed"); }
  void notice(std::string_view text) override { add("notice: " + std::string(text)); }

  std::vector<std::string> heard;

 private:
  void add(std::string text) { heard.push_back(std::move(text)); }
};

}  // namespace quobrak::host
