#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "host/run/RunRecord.h"

/// How a run is spoken of, on a screen as in files.
namespace quobrak::host {

/// As `results.json` writes them: "passed", "failed", "aborted", "notRun".
std::string_view nameOf(ScriptOutcome outcome);
/// As `results.json` writes them: "finished", "aborted", "failed", "misconfigured", "interrupted".
std::string_view nameOf(IterationOutcome outcome);
/// As `results.json` writes them: "scripts", "command", "reference".
std::string_view nameOf(RunKind kind);

/// As people read it: "not run".
std::string_view inWords(ScriptOutcome outcome);

/// "Shop/order"; where there is no suite the script's name, and where that is missing too, what is run. It is to be
/// shown as it is: control characters are replaced.
std::string titleOf(const RunRecord& run, std::size_t script);

/// "iteration 3", "warm-up 1".
std::string titleOf(const IterationRecord& iteration);

/// "line 7: clickByText,Lamb: The expected text Lamb was not found", as much of it as is known. It is to be shown as it
/// is: control characters are replaced. `cause` is what ended the script.
std::string failureIn(const std::optional<RunLine>& line, std::string_view cause);

/// What ended the script: its cause, or its status's words where that is not known.
const std::string& causeOf(const ScriptRecord& script);

/// "850 ms", "12.3 s", "4 min 05 s", "2 h 03 min". Below 0 it is "0 ms".
std::string durationInWords(std::chrono::nanoseconds duration);

/// Time that is still to pass, in whole seconds, the one that has begun counted whole: "8 s", "1 min 05 s", "2 h 03
/// min". Below 0 it is "0 s".
std::string countdownInWords(std::chrono::nanoseconds duration);

}  // namespace quobrak::host
