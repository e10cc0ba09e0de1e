#pragma once

#include <ostream>

#include "host/run/RunRecord.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// The files that a run leaves in its folder besides those of its iterations.
inline constexpr const char* RESULTS_FILE = "results.json";
inline constexpr const char* JUNIT_FILE = "junit.xml";

/// Writes both files into the run's folder, which must exist; docs/results.md tells what they hold. Each is written
/// whole, or what stood there before stays. Throws `EnvironmentError` where one cannot be written, and says which.
void writeResults(const RunRecord& run);

/// Prints what became of the scripts, the figures of the steps, and where the results lie. Names are shortened to a
/// terminal's width; into a file they go whole. Not for a run that is to be quiet.
void printSummary(const RunRecord& run, const Terminal& terminal, std::ostream& out);

}  // namespace quobrak::host
