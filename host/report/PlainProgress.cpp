#include "host/report/PlainProgress.h"

#include "host/report/RunWords.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

// Each line is flushed: who follows a file sees what there is.

void PlainProgress::scriptFinished(std::size_t script, ScriptOutcome outcome, std::string_view cause) {
  out_ << resultLine(script, outcome, cause) << std::endl;
}

void PlainProgress::iterationFinished(const RunRecord&, const IterationRecord& iteration) {
  out_ << endLine(iteration) << std::endl;
}

void PlainProgress::restStarted(std::int64_t milliseconds) {
  out_ << "Rest of " << durationInWords(std::chrono::milliseconds(milliseconds)) << std::endl;
}

void PlainProgress::notice(std::string_view text) {
  out_ << shown(text) << std::endl;
}

}  // namespace quobrak::host
