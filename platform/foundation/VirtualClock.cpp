#include "platform/foundation/VirtualClock.h"

#include <algorithm>

namespace quobrak {

VirtualClock::VirtualClock()
    : VirtualClock(
          std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::system_clock::now().time_since_epoch())) {}

VirtualClock::VirtualClock(std::chrono::milliseconds start) : sinceEpoch_(start + std::chrono::microseconds(500)) {}

Seconds VirtualClock::timeIntervalSince1970() const {
  return sinceEpoch_;
}

Clock::TimePoint VirtualClock::now() const {
  return TimePoint(sinceEpoch_);
}

void VirtualClock::usleep(std::uint32_t microseconds) {
  const std::chrono::nanoseconds left = std::chrono::nanoseconds::max() - sinceEpoch_;
  sinceEpoch_ += std::min<std::chrono::nanoseconds>(std::chrono::microseconds(microseconds), left);
}

}  // namespace quobrak
