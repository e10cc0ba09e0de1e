#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/run/IterationProgress.h"
#include "host/run/RunRecord.h"
#include "host/run/Supervisor.h"

namespace quobrak::host {

/// Where the trace of an iteration, and what its test process prints, lie in the Documents directory.
inline constexpr const char* TRACE_FILE = "trace.jsonl";
inline constexpr const char* OUTPUT_FILE = "output.txt";

/// Fills in the record of an iteration, of which the trace has been taken in, once its test process has ended: how it
/// ended and why, what became of each script, and the measured steps. `run` has the scripts and the kind of the run,
/// `documents` is the Documents directory. Gives what a person should know besides.
std::vector<std::string> collectResults(const RunRecord& run, const std::filesystem::path& documents,
                                        const ProcessEnd& end, const IterationProgress& progress,
                                        IterationRecord& iteration);

}  // namespace quobrak::host
