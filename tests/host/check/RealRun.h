#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/check/Variables.h"

namespace quobrak::host::testing {

/// Where and why a run failed first.
struct RunFailure {
  /// From 0.
  std::size_t script = 0;
  /// From 1.
  std::size_t line = 0;
  /// The real cause, without the line.
  std::string cause;
  /// Whether the process was stopped.
  bool isStop = false;

  bool operator==(const RunFailure&) const = default;
};

/// Runs the scripts one after the other with the real interpreter, in a process of its own, on the phone and the clock
/// that are installed. None where all of them go through.
std::optional<RunFailure> realRun(const std::vector<std::string>& scripts, const Variables& variables);

}  // namespace quobrak::host::testing
