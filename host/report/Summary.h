#pragma once

#include <string>

#include "host/run/RunRecord.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// What is shown when a run is over: what became of the scripts, how each first failed, iterations that did not finish,
/// the figures of the steps, and where the results lie. On a terminal names are shortened as the tables need it.
std::string summaryOf(const RunRecord& run, const Terminal& terminal);

}  // namespace quobrak::host
