#pragma once

#include <cstdint>

#include "platform/foundation/Clock.h"

namespace quobrak {

/// The wall clock in milliseconds since 1970-01-01T00:00:00Z, truncated toward zero. Fatal where the clock's reading is
/// not finite or beyond 64 bits.
std::int64_t getTimestampMillis();

}  // namespace quobrak
