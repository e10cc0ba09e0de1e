#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include "platform/foundation/VirtualClock.h"

namespace quobrak::conformance {

/// Virtual time in which something may happen: it is carried out when a sleep reaches its time.
class EventfulClock final : public Clock {
 public:
  EventfulClock() : clock_(std::chrono::milliseconds(1700000000000)) {}

  /// Once, `delay` from now.
  void after(std::chrono::nanoseconds delay, std::function<void()> event);

  Seconds timeIntervalSince1970() const override { return clock_.timeIntervalSince1970(); }
  TimePoint now() const override { return clock_.now(); }
  void usleep(std::uint32_t microseconds) override;

 private:
  struct Event {
    TimePoint time;
    std::function<void()> happen;
  };

  void sleepUntil(TimePoint time);

  VirtualClock clock_;
  std::vector<Event> events_;
};

}  // namespace quobrak::conformance
