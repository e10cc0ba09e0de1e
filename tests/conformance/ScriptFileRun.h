#pragma once

#include "tests/conformance/ConformanceTest.h"
#include "tests/conformance/ScriptFile.h"
#include "tests/conformance/ScriptFileOutcome.h"

namespace quobrak::conformance {

/// Runs scripts on the driver of this program, each as a run of its own. One script for each test process, or one that
/// stops it.
class ScriptFileRun : public ConformanceTest {
 protected:
  /// Switches on the script's phone, runs the script and looks around.
  ScriptFileOutcome outcomeOf(const ScriptFile& script);

  /// The test fails for all that comes otherwise than the script says.
  void check(const ScriptFile& script);

 private:
  void switchOnPhoneOf(const ScriptFile& script);
};

}  // namespace quobrak::conformance
