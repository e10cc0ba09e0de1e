#include "quobrakUITests/Timestamp.h"

#include "platform/foundation/FatalError.h"

namespace quobrak {

std::int64_t getTimestampMillis() {
  const double milliseconds = Clock::shared().timeIntervalSince1970().count() * 1000.0;
  // The doubles within this open range are those that truncate to a signed 64-bit integer; NaN is in no range.
  constexpr double LIMIT = 9223372036854775808.0;
  if (!(milliseconds >= -LIMIT && milliseconds < LIMIT)) {
    fatalError("The clock's time in milliseconds does not fit a signed 64-bit integer");
  }
  return static_cast<std::int64_t>(milliseconds);
}

}  // namespace quobrak
