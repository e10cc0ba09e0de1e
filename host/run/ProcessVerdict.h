#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "host/run/RunRecord.h"
#include "host/run/Supervisor.h"

namespace quobrak::host {

/// Where in its scripts the test process was when it ended.
struct ProcessPlace {
  /// The script that was running, as "SUITE/NAME"; empty between scripts.
  std::string script;
  /// The line that was running, if any.
  std::optional<RunLine> line;
};

/// What the end of a test process means.
struct ProcessVerdict {
  IterationOutcome outcome = IterationOutcome::finished;
  /// In a sentence, with the place; empty where the process finished.
  std::string message;
  /// The same without the place; empty where the process finished.
  std::string cause;
};

/// The verdict by how the process ended. `output` is what it printed: its words for the reason are found there.
ProcessVerdict verdictOf(const ProcessEnd& end, std::string_view output, const ProcessPlace& place);

/// What the test process says it was caught in when it ends with status 1; empty where it says nothing.
std::string caughtErrorIn(std::string_view output);

}  // namespace quobrak::host
