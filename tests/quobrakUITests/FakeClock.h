#pragma once

#include "platform/foundation/Clock.h"

namespace quobrak::testing {

/// A clock whose wall-clock time is what the test says, whatever was slept.
class FakeClock final : public Clock {
 public:
  explicit FakeClock(double secondsSince1970) : time_(secondsSince1970) {}

  Seconds timeIntervalSince1970() const override { return time_; }
  TimePoint now() const override { return {}; }
  void usleep(std::uint32_t) override {}

 private:
  Seconds time_;
};

}  // namespace quobrak::testing
