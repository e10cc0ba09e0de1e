#pragma once

#include "tests/conformance/ScriptFileRun.h"
#include "tests/documentation/DocumentedRun.h"

namespace quobrak::documentation {

/// Runs the examples of a page, each as a run of its own. One for each test process.
class DocumentedExample : public conformance::ScriptFileRun {
 protected:
  /// The test fails for all that comes otherwise than the page says.
  void checkRun(const DocumentedRun& run);

 private:
  void checkTogether(const std::vector<conformance::ScriptFile>& scripts);
};

}  // namespace quobrak::documentation
