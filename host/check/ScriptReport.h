#pragma once

#include <optional>
#include <vector>

#include "host/check/Finding.h"

namespace quobrak::host {

/// What is to be said of one script, whatever runs before it; and what depends on that.
struct ScriptReport {
  /// Those that hold in any case.
  std::vector<Finding> findings;

  // What the script needs of the scripts before it. Each is an error for where they do not give it, at the first line
  // that needs it.

  std::optional<Finding> needsApplication;
  std::optional<Finding> needsElement;
  /// The script stops a step that it has not begun.
  std::optional<Finding> needsStep;
  /// Whether it stops, or may stop, a step that a script before it has begun.
  bool stopsStep = false;

  /// A warning for where a step is open when the script begins: the line that begins another one.
  std::optional<Finding> replacesStep;

  // What the script gives to those behind it.

  bool givesApplication = false;
  bool givesElement = false;
  bool beginsStep = false;
  /// A warning for where nobody stops the step that the script leaves open.
  std::optional<Finding> leavesStepOpen;
};

}  // namespace quobrak::host
