#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/foundation/JSON.h"

namespace quobrak {

/// A timestamped marker.
struct MeasureTick {
  /// Wall clock, milliseconds since 1970-01-01T00:00:00Z.
  std::int64_t time;
  /// Named values attached to the instant.
  std::map<std::string, std::int64_t> values;

  JSONValue encode() const;
  /// Throws `DecodingError` where a key is missing or has another type.
  static MeasureTick decode(const JSONReader& json);

  bool operator==(const MeasureTick&) const = default;
};

}  // namespace quobrak
