#include "quobrakUITests/CheckedArithmetic.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace quobrak {
namespace {

using ::testing::Eq;

constexpr std::int64_t LARGEST = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t SMALLEST = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t ONE = 1;

TEST(CheckedArithmetic, ResultsUpToTheEndsOfTheRange) {
  EXPECT_EQ(checkedAdd(LARGEST - 1, ONE, "sum"), LARGEST);
  EXPECT_EQ(checkedAdd(SMALLEST + 1, -ONE, "sum"), SMALLEST);
  EXPECT_EQ(checkedSubtract(SMALLEST + 1, ONE, "difference"), SMALLEST);
  EXPECT_EQ(checkedSubtract(-ONE, SMALLEST, "difference"), LARGEST);
}

TEST(CheckedArithmetic, SumBeyondTheRangeIsFatal) {
  EXPECT_DEATH(checkedAdd(LARGEST, ONE, "The sum overflows"), Eq("Fatal error: The sum overflows\n"));
  EXPECT_DEATH(checkedAdd(SMALLEST, -ONE, "The sum overflows"), Eq("Fatal error: The sum overflows\n"));
}

TEST(CheckedArithmetic, DifferenceBeyondTheRangeIsFatal) {
  EXPECT_DEATH(checkedSubtract(SMALLEST, ONE, "Too far"), Eq("Fatal error: Too far\n"));
  EXPECT_DEATH(checkedSubtract(ONE, SMALLEST, "Too far"), Eq("Fatal error: Too far\n"));
}

}  // namespace
}  // namespace quobrak
