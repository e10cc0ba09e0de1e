#include "platform/foundation/Clock.h"

#include <unistd.h>

#include <utility>

namespace quobrak {

namespace {

std::unique_ptr<Clock>& sharedClock() {
  static std::unique_ptr<Clock> clock = std::make_unique<SystemClock>();
  return clock;
}

}  // namespace

Clock& Clock::shared() {
  return *sharedClock();
}

void Clock::install(std::unique_ptr<Clock> clock) {
  sharedClock() = std::move(clock);
}

Seconds SystemClock::timeIntervalSince1970() const {
  return std::chrono::system_clock::now().time_since_epoch();
}

Clock::TimePoint SystemClock::now() const {
  return TimePoint(std::chrono::steady_clock::now().time_since_epoch());
}

void SystemClock::usleep(std::uint32_t microseconds) {
  ::usleep(microseconds);
}

}  // namespace quobrak
