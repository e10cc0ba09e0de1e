#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "drivers/simulator/Element.h"
#include "tests/conformance/ScriptFile.h"

namespace quobrak::conformance {

/// What a script has done.
struct ScriptFileOutcome {
  /// What is true for each key that an expectation may have, but for "screen", written as an expectation is.
  std::map<std::string, std::string> told;
  /// The real reason of a failure, of which the status may tell less; empty where there is none.
  std::string reason;
  /// Copies of the trees that the screen showed when the script had ended: the application in front, then the alerts.
  std::vector<std::unique_ptr<simulator::Element>> screen;
};

/// What has come otherwise than expected: a sentence for each, with the place of the expectation and what was found.
std::vector<std::string> complaints(const ScriptFile& script, const ScriptFileOutcome& outcome);

}  // namespace quobrak::conformance
