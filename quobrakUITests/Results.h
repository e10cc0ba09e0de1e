#pragma once

#include <vector>

#include "quobrakUITests/TestStatus.h"

namespace quobrak {

/// Writes what a run has found out.
class Results {
 public:
  Results() = delete;

  /// Writes a measure file for each finished step, then the status file. The first failure ends it: files written
  /// before stay, those after it are not written.
  static void saveJobResult(const std::vector<TestStatus>& testStatus);
};

}  // namespace quobrak
