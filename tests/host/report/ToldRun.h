#pragma once

#include "host/run/RunListener.h"

namespace quobrak::host {

/// Tells the listener of the sample run from its beginning to its end, as if it happened: with a line for each script
/// that ends at one, with a notice, and with a rest between iterations.
void tellSampleRun(RunListener& listener);

}  // namespace quobrak::host
