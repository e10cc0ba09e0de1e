#pragma once

#include "host/run/RunRecord.h"

namespace quobrak::host {

/// A run with a bit of everything: a warm-up and three iterations of three scripts in two suites, of which one fails
/// and one is never reached, because the last iteration is aborted.
RunRecord sampleRun();

}  // namespace quobrak::host
