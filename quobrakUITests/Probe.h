#pragma once

#include <string>

namespace quobrak {

/// Marks the beginning and the end of a measured step. Steps do not nest.
class Probe {
 public:
  Probe() = delete;

  /// Opens a step. One that is open already is dropped.
  static void measureStart(std::string stepName);

  /// What `measureStop` stops the process with where no step was ever opened.
  static constexpr const char* NO_STEP = "Index out of range: measureStop without a measureStart before it";

  /// Records the open step with its duration; it stays open, so that it can be stopped again. Fatal where no step was
  /// ever opened.
  static void measureStop();
};

}  // namespace quobrak
