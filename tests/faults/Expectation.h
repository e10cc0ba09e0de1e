#pragma once

#include <string>

#include "tests/faults/Outcome.h"
#include "tests/faults/SuiteRun.h"

namespace quobrak::faults {

/// What a call that fails does to a run.
enum class Consequence {
  nothing,
  /// The run goes through, and what was to be cleared stands beside its results.
  isNotCleared,
  /// The test raises, and all earlier results stand.
  runIsRefused,
  /// The test raises before any script runs. What was cleared before is gone.
  clearingEnds,
  /// The script has failed for this reason. Its pictures and steps until then are kept, and it gets its last picture
  /// and its dump. The other scripts run as ever.
  scriptFails,
  /// The script's status stays and tells this reason; its dump, and the picture before it, are missing if they were not
  /// taken before. The other scripts run as ever.
  pictureOrDumpIsMissing,
  /// The test raises. What was written before stands whole; a status file that was not written is the earlier one.
  resultsEnd
};

/// In what words a run tells of an error.
struct Failure {
  /// What the test raises, or a status gives as reason.
  std::string reason;
  /// What the trace says: its kind and its message.
  std::string traced;
};

/// An error that is none of the system's own, at the call: statuses only say that there was one. `kind` is the trace's.
Failure unknownFailure(const Call& call, const std::string& kind, const std::string& message);

/// What a run of the suite leaves when the call, one of those that the undisturbed run made, fails.
Summary expectedAfter(const Suite& suite, const Outcome& undisturbed, const Call& failed, Consequence consequence,
                      const Failure& failure);

}  // namespace quobrak::faults
