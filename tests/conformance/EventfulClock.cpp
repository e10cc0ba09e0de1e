#include "tests/conformance/EventfulClock.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace quobrak::conformance {

void EventfulClock::after(std::chrono::nanoseconds delay, std::function<void()> event) {
  events_.push_back({now() + delay, std::move(event)});
}

void EventfulClock::sleepUntil(TimePoint time) {
  const auto missing = std::chrono::ceil<std::chrono::microseconds>(time - now()).count();
  if (missing > 0) {
    clock_.usleep(static_cast<std::uint32_t>(missing));
  }
}

void EventfulClock::usleep(std::uint32_t microseconds) {
  const TimePoint end = now() + std::chrono::microseconds(microseconds);
  const auto isEarlier = [](const Event& one, const Event& other) { return one.time < other.time; };
  for (auto next = std::min_element(events_.begin(), events_.end(), isEarlier);
       next != events_.end() && next->time <= end; next = std::min_element(events_.begin(), events_.end(), isEarlier)) {
    const Event event = *next;
    events_.erase(next);
    sleepUntil(event.time);
    event.happen();
  }
  sleepUntil(end);
}

}  // namespace quobrak::conformance
