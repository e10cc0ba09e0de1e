#include "platform/foundation/VirtualClock.h"

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
  sinceEpoch_ += std::chrono::microseconds(microseconds);
}

}  // namespace quobrak
