#include "platform/uiautomation/Waiting.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace quobrak {

namespace {

using std::chrono::microseconds;
using std::chrono::nanoseconds;

/// Long enough for any wait, and still far from the end of what a 64-bit count of nanoseconds can hold.
constexpr nanoseconds LONGEST = std::chrono::hours(24 * 365 * 100);

nanoseconds saturated(Seconds duration) {
  if (!(duration > Seconds::zero())) {
    return nanoseconds::zero();
  }
  if (duration >= LONGEST) {
    return LONGEST;
  }
  return nanoseconds(std::llround(duration.count() * 1e9));
}

/// The clock's last moment where it cannot count as far as that.
Clock::TimePoint momentAfter(const Clock& clock, Seconds duration) {
  const Clock::TimePoint now = clock.now();
  return now + std::min(saturated(duration), Clock::TimePoint::max() - now);
}

/// Sleeps at least once for the part that one sleep can take, so that a rest of nanoseconds still moves the clock.
void sleepOnce(Clock& clock, nanoseconds rest) {
  const microseconds wanted = std::chrono::ceil<microseconds>(rest);
  const microseconds longest(std::numeric_limits<std::uint32_t>::max());
  clock.usleep(static_cast<std::uint32_t>(std::min(wanted, longest).count()));
}

}  // namespace

XCTWaiterResult waitUntil(Clock& clock, Seconds timeout, std::chrono::milliseconds interval,
                          const std::function<bool()>& holds) {
  const Clock::TimePoint deadline = momentAfter(clock, timeout);
  while (!holds()) {
    const nanoseconds rest = deadline - clock.now();
    if (rest <= nanoseconds::zero()) {
      return XCTWaiterResult::timedOut;
    }
    sleepOnce(clock, std::min<nanoseconds>(rest, interval));
  }
  return XCTWaiterResult::completed;
}

void sleepFor(Clock& clock, Seconds duration) {
  const Clock::TimePoint end = momentAfter(clock, duration);
  for (nanoseconds rest = end - clock.now(); rest > nanoseconds::zero(); rest = end - clock.now()) {
    sleepOnce(clock, rest);
  }
}

}  // namespace quobrak
