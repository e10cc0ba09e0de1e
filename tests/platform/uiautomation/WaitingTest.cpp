#include "platform/uiautomation/Waiting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "platform/foundation/VirtualClock.h"

namespace quobrak {
namespace {

using namespace std::chrono_literals;
using ::testing::ThrowsMessage;

constexpr std::chrono::milliseconds START = 1700000000000ms;
constexpr std::chrono::milliseconds INTERVAL = 50ms;
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

/// Sleeps only half of what it is asked for, as after a signal.
class InterruptedClock final : public Clock {
 public:
  Seconds timeIntervalSince1970() const override { return clock_.timeIntervalSince1970(); }
  TimePoint now() const override { return clock_.now(); }
  void usleep(std::uint32_t microseconds) override { clock_.usleep(microseconds / 2 + 1); }

 private:
  VirtualClock clock_{START};
};

TEST(WaitUntil, ChecksAtOnceAfterEveryIntervalAndALastTimeAtTheDeadline) {
  struct Row {
    double timeout;
    int checks;
    std::chrono::microseconds elapsed;
  };
  const Row ROWS[] = {
      {0.12, 4, 120ms}, {0.1, 3, 100ms}, {0.05, 2, 50ms},     {0.001, 2, 1ms},        {0.0000005, 2, 1us},
      {0, 1, 0us},      {-1, 1, 0us},    {-INFINITE, 1, 0us}, {NOT_A_NUMBER, 1, 0us},
  };
  for (const auto& [timeout, expectedChecks, elapsed] : ROWS) {
    VirtualClock clock(START);
    const Clock::TimePoint start = clock.now();
    int checks = 0;
    const auto never = [&checks] {
      ++checks;
      return false;
    };
    EXPECT_EQ(waitUntil(clock, Seconds(timeout), INTERVAL, never), XCTWaiterResult::timedOut) << timeout;
    EXPECT_EQ(checks, expectedChecks) << timeout;
    EXPECT_EQ(clock.now() - start, elapsed) << timeout;
  }
}

TEST(WaitUntil, CompletesWithoutTimePassingWhereItHoldsAtOnce) {
  for (const double timeout : {10.0, 0.0, -1.0, NOT_A_NUMBER, INFINITE}) {
    VirtualClock clock(START);
    const Clock::TimePoint start = clock.now();
    EXPECT_EQ(waitUntil(clock, Seconds(timeout), INTERVAL, [] { return true; }), XCTWaiterResult::completed) << timeout;
    EXPECT_EQ(clock.now(), start) << timeout;
  }
}

TEST(WaitUntil, CompletesWhereItComesToHoldAtTheDeadline) {
  VirtualClock clock(START);
  const Clock::TimePoint deadline = clock.now() + 70ms;
  EXPECT_EQ(waitUntil(clock, 70ms, INTERVAL, [&] { return clock.now() == deadline; }), XCTWaiterResult::completed);
  EXPECT_EQ(clock.now(), deadline);
}

TEST(WaitUntil, AHugeTimeoutSaturates) {
  for (const double timeout : {1e10, 1e300, INFINITE}) {
    VirtualClock clock(START);
    const Clock::TimePoint start = clock.now();
    const auto afterADay = [&] { return clock.now() - start >= 24h; };
    EXPECT_EQ(waitUntil(clock, Seconds(timeout), INTERVAL, afterADay), XCTWaiterResult::completed) << timeout;
    EXPECT_EQ(clock.now() - start, 24h) << timeout;
  }
}

TEST(WaitUntil, ASleepThatEndsEarlyDoesNotMoveTheDeadline) {
  InterruptedClock clock;
  const Clock::TimePoint start = clock.now();
  EXPECT_EQ(waitUntil(clock, 1s, INTERVAL, [] { return false; }), XCTWaiterResult::timedOut);
  EXPECT_EQ(clock.now() - start, 1s);
}

TEST(WaitUntil, WhatTheConditionRaisesPasses) {
  VirtualClock clock(START);
  EXPECT_THAT([&clock] { waitUntil(clock, 1s, INTERVAL, []() -> bool { throw std::runtime_error("no pattern"); }); },
              ThrowsMessage<std::runtime_error>("no pattern"));
}

TEST(SleepFor, MovesTheClockByTheDuration) {
  struct Row {
    double duration;
    std::chrono::microseconds elapsed;
  };
  const Row ROWS[] = {
      {1.5, 1500ms}, {0.000001, 1us}, {0.000000001, 1us}, {5000, 5000s},  // more than one sleep can take
      {0, 0us},      {-1, 0us},       {-INFINITE, 0us},   {NOT_A_NUMBER, 0us},
  };
  for (const auto& [duration, elapsed] : ROWS) {
    VirtualClock clock(START);
    const Clock::TimePoint start = clock.now();
    sleepFor(clock, Seconds(duration));
    EXPECT_EQ(clock.now() - start, elapsed) << duration;
  }
}

TEST(SleepFor, ASleepThatEndsEarlyIsResumed) {
  InterruptedClock clock;
  const Clock::TimePoint start = clock.now();
  sleepFor(clock, 1s);
  EXPECT_EQ(clock.now() - start, 1s);
}

TEST(SleepFor, MoreThanTheClockCanCountSaturates) {
  for (const double duration : {1e10, 1e300, INFINITE}) {
    VirtualClock clock(START);
    const Clock::TimePoint start = clock.now();
    sleepFor(clock, Seconds(duration));
    EXPECT_EQ(clock.now() - start, 24h * 365 * 100) << duration;
  }
}

TEST(SleepFor, EndsWhereTheClockCannotCountAnyFurther) {
  VirtualClock clock(START);
  for (int sleep = 0; sleep < 3; ++sleep) {
    sleepFor(clock, Seconds(INFINITE));
  }
  EXPECT_EQ(clock.now(), Clock::TimePoint::max());
}

TEST(WaitUntil, EndsWhereTheClockCannotCountAnyFurther) {
  constexpr auto LAST = std::chrono::floor<std::chrono::milliseconds>(Clock::TimePoint::max().time_since_epoch());
  VirtualClock clock(LAST - 120ms);
  int checks = 0;
  const auto never = [&checks] {
    ++checks;
    return false;
  };
  EXPECT_EQ(waitUntil(clock, Seconds(INFINITE), INTERVAL, never), XCTWaiterResult::timedOut);
  EXPECT_EQ(checks, 4);
  EXPECT_EQ(clock.now(), Clock::TimePoint::max());
}

}  // namespace
}  // namespace quobrak
