#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/foundation/JSON.h"
#include "quobrakUITests/MeasureTick.h"

namespace quobrak {

/// One measured step. The name and the keys are what the host tool expects.
struct TestResultV2 {
  /// The name of the step.
  std::string test;
  /// Milliseconds from the start tick to the stop tick; 0 while the step is open.
  std::int64_t testTime;
  /// Groups of ticks: the first holds the start tick, then the stop tick; the second is there and empty.
  std::vector<std::vector<MeasureTick>> measures;

  JSONValue encode() const;
  /// Throws `DecodingError` where a key is missing or has another type.
  static TestResultV2 decode(const JSONReader& json);

  bool operator==(const TestResultV2&) const = default;
};

}  // namespace quobrak
