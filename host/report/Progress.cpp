#include "host/report/Progress.h"

#include "host/report/LiveProgress.h"
#include "host/report/PlainProgress.h"
#include "host/report/QuietProgress.h"

namespace quobrak::host {

std::unique_ptr<RunListener> progressFor(const Terminal& terminal, bool isQuiet, std::ostream& out, std::ostream& err,
                                         const Clock& clock) {
  if (isQuiet) {
    return std::make_unique<QuietProgress>(err);
  }
  if (terminal.isInteractive) {
    return std::make_unique<LiveProgress>(terminal, out, clock);
  }
  return std::make_unique<PlainProgress>(out);
}

}  // namespace quobrak::host
