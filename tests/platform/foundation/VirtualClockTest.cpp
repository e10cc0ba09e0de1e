#include "platform/foundation/VirtualClock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>

namespace quobrak {
namespace {

using std::chrono::floor;
using std::chrono::microseconds;
using std::chrono::milliseconds;

constexpr milliseconds START(1'700'000'000'000);

microseconds wallReading(const VirtualClock& clock) {
  return std::chrono::round<microseconds>(clock.timeIntervalSince1970());
}

// How timestamps are made all over the program.
std::int64_t timestamp(const VirtualClock& clock) {
  return static_cast<std::int64_t>(clock.timeIntervalSince1970().count() * 1000.0);
}

TEST(VirtualClock, StartsHalfAMillisecondPastTheGivenTime) {
  const VirtualClock clock(START);
  EXPECT_EQ(wallReading(clock), START + microseconds(500));
}

TEST(VirtualClock, StartsAtTheMachinesTimeWhereNoneIsGiven) {
  const auto before = floor<milliseconds>(std::chrono::system_clock::now().time_since_epoch());
  const VirtualClock clock;
  const auto after = floor<milliseconds>(std::chrono::system_clock::now().time_since_epoch());
  EXPECT_GE(wallReading(clock), before + microseconds(500));
  EXPECT_LE(wallReading(clock), after + microseconds(500));
}

TEST(VirtualClock, StandsStillWhileNobodySleeps) {
  const VirtualClock clock(START);
  const Clock::TimePoint now = clock.now();
  const Seconds wall = clock.timeIntervalSince1970();
  EXPECT_EQ(clock.now(), now);
  EXPECT_EQ(clock.timeIntervalSince1970(), wall);
}

TEST(VirtualClock, ASleepMovesBothReadingsByExactlyItsLength) {
  constexpr std::uint32_t SLEEPS[] = {0, 1, 999, 1'000, 16'667, 1'000'000, std::numeric_limits<std::uint32_t>::max()};
  VirtualClock clock(START);
  for (const std::uint32_t sleep : SLEEPS) {
    const Clock::TimePoint now = clock.now();
    const microseconds wall = wallReading(clock);
    clock.usleep(sleep);
    EXPECT_EQ(clock.now() - now, microseconds(sleep));
    EXPECT_EQ(wallReading(clock) - wall, microseconds(sleep));
  }
}

TEST(VirtualClock, StandsStillWhereItCannotCountAnyFurther) {
  constexpr auto LAST = std::chrono::floor<milliseconds>(std::chrono::nanoseconds::max());
  VirtualClock clock(LAST - milliseconds(10));
  for (int sleep = 0; sleep < 3; ++sleep) {
    clock.usleep(10'000);
  }
  EXPECT_EQ(clock.now(), Clock::TimePoint::max());
}

TEST(VirtualClock, TimestampsDifferByExactlyTheWholeMillisecondsSlept) {
  VirtualClock clock(START);
  std::int64_t expected = START.count();
  for (std::uint32_t step = 0; step < 10'000; ++step) {
    ASSERT_EQ(timestamp(clock), expected) << "after " << step << " steps";
    const std::uint32_t sleep = 1 + step % 97;
    clock.usleep(sleep * 1'000);
    expected += sleep;
  }
}

}  // namespace
}  // namespace quobrak
