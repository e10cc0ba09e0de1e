#include "host/report/QuietProgress.h"

namespace quobrak::host {

void QuietProgress::scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) {
  if (outcome == ScriptOutcome::failed || outcome == ScriptOutcome::aborted) {
    err_ << resultLine(script, outcome, cause) << std::endl;
  }
}

void QuietProgress::iterationFinished(const RunRecord&, const IterationRecord& iteration) {
  if (iteration.outcome != IterationOutcome::finished) {
    err_ << endLine(iteration) << std::endl;
  }
}

}  // namespace quobrak::host
