#pragma once

#include "host/run/RunRecord.h"
#include "platform/foundation/JSON.h"

namespace quobrak::host {

/// The number of the form of `results.json`, which changes when a key goes or comes to mean something else.
inline constexpr int RESULTS_FORMAT = 1;

/// What `results.json` holds: all of the record but its folder, and the figures made of it. docs/results.md tells of
/// the keys. Bytes that are no UTF-8 are replaced.
JSONValue resultsDocument(const RunRecord& run);

}  // namespace quobrak::host
