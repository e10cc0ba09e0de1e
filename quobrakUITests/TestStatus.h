#pragma once

#include <string>

#include "platform/foundation/JSON.h"

namespace quobrak {

/// The outcome of one script.
struct TestStatus {
  /// "success" or "failed"; empty while the script runs.
  std::string status;
  /// The reason of a failure; empty where there is none.
  std::string stackTrace;

  JSONValue encode() const;
  /// Throws `DecodingError` where a key is missing or has another type.
  static TestStatus decode(const JSONReader& json);

  bool operator==(const TestStatus&) const = default;
};

}  // namespace quobrak
