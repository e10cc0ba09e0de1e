#pragma once

#include <memory>
#include <ostream>

#include "host/run/RunListener.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/Clock.h"

namespace quobrak::host {

/// What shows how a run goes on. On a terminal a few lines that are drawn anew; into a file or a program a line for
/// each result. A quiet run shows only what goes wrong, on `err`. `terminal` is what `out` leads to. The streams and
/// the clock, which is to be the machine's, must outlive the listener, and nothing else may write to the terminal
/// between `runStarted` and `runFinished`.
std::unique_ptr<RunListener> progressFor(const Terminal& terminal, bool isQuiet, std::ostream& out, std::ostream& err,
                                         const Clock& clock = Clock::shared());

}  // namespace quobrak::host
