#include "quobrakUITests/Timestamp.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "tests/quobrakUITests/FakeClock.h"

namespace quobrak {
namespace {

using ::testing::Eq;

TEST(Timestamp, IsTruncatedTowardZero) {
  struct Row {
    double seconds;
    std::int64_t expected;
  };
  const Row ROWS[] = {
      {0.0, 0},
      {0.0009, 0},
      {-0.0009, 0},
      {1.9999, 1999},
      {-1.9999, -1999},
      {1700000000.0, 1700000000000},
      {1700000000.0009, 1700000000000},
      {1700000000.1239, 1700000000123},
      {9223372036854774.0, 9223372036854773760},
      {-9223372036854776.0, std::numeric_limits<std::int64_t>::min()},
  };
  for (const auto& [seconds, expected] : ROWS) {
    Clock::install(std::make_unique<testing::FakeClock>(seconds));
    EXPECT_EQ(getTimestampMillis(), expected) << seconds;
  }
}

TEST(Timestamp, ClockBeyondTheRangeIsFatal) {
  using Limits = std::numeric_limits<double>;
  for (const double seconds : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 1e300, -1e300,
                               Limits::max(), 9223372036854776.0, -9223372036854778.0}) {
    Clock::install(std::make_unique<testing::FakeClock>(seconds));
    EXPECT_DEATH(getTimestampMillis(),
                 Eq("Fatal error: The clock's time in milliseconds does not fit a signed 64-bit integer\n"));
  }
}

}  // namespace
}  // namespace quobrak
