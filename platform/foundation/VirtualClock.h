#pragma once

#include "platform/foundation/Clock.h"

namespace quobrak {

/// A clock that only moves when someone sleeps: a pause of a minute costs nothing, and every timestamp, wait and
/// animation agrees with it.
///
/// It stands half a millisecond past a whole one, so that truncation to milliseconds never shifts a duration. In the
/// year 2262 it has come as far as it can count, and stands still.
class VirtualClock final : public Clock {
 public:
  /// Starts at the machine's present time.
  VirtualClock();

  /// Starts half a millisecond after `start`, counted from 1970-01-01T00:00:00Z.
  explicit VirtualClock(std::chrono::milliseconds start);

  Seconds timeIntervalSince1970() const override;
  TimePoint now() const override;
  void usleep(std::uint32_t microseconds) override;

 private:
  std::chrono::nanoseconds sinceEpoch_;
};

}  // namespace quobrak
