#include "platform/foundation/Clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <memory>

namespace quobrak {
namespace {

class StoppedClock final : public Clock {
 public:
  Seconds timeIntervalSince1970() const override { return Seconds(5); }
  TimePoint now() const override { return TimePoint(std::chrono::seconds(7)); }
  void usleep(std::uint32_t) override {}
};

TEST(SystemClock, TheWallClockIsTheMachines) {
  const Seconds before = std::chrono::system_clock::now().time_since_epoch();
  const Seconds reading = SystemClock().timeIntervalSince1970();
  const Seconds after = std::chrono::system_clock::now().time_since_epoch();
  EXPECT_LE(before, reading);
  EXPECT_LE(reading, after);
}

TEST(SystemClock, NowIsTheMachinesSteadyClock) {
  const auto before = std::chrono::steady_clock::now().time_since_epoch();
  const auto reading = SystemClock().now().time_since_epoch();
  const auto after = std::chrono::steady_clock::now().time_since_epoch();
  EXPECT_LE(before, reading);
  EXPECT_LE(reading, after);
}

TEST(SystemClock, ASleepOfNoTimeReturns) {
  SystemClock clock;
  const Clock::TimePoint before = clock.now();
  clock.usleep(0);
  EXPECT_GE(clock.now(), before);
}

TEST(Clock, TheSharedOneIsTheInstalledOne) {
  Clock::install(std::make_unique<StoppedClock>());
  EXPECT_EQ(Clock::shared().timeIntervalSince1970(), Seconds(5));
  EXPECT_EQ(Clock::shared().now(), Clock::TimePoint(std::chrono::seconds(7)));
  Clock::install(std::make_unique<SystemClock>());
}

TEST(Clock, TheSharedOneIsTheSystemsUntilAnotherIsInstalled) {
  EXPECT_NE(dynamic_cast<SystemClock*>(&Clock::shared()), nullptr);
}

}  // namespace
}  // namespace quobrak
