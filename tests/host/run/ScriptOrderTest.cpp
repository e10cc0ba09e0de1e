#include "host/run/ScriptOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(ScriptOrder, IsAsGivenWithoutASeed) {
  ScriptOrder order(3, std::nullopt);
  EXPECT_THAT(order.next(), ElementsAre(0, 1, 2));
  EXPECT_THAT(order.next(), ElementsAre(0, 1, 2));
}

// Calculated by another program, from the definition of the 64-bit Mersenne Twister.
TEST(ScriptOrder, IsTheSameOnEveryMachineForASeed) {
  ScriptOrder order(4, 7);
  EXPECT_THAT(order.next(), ElementsAre(1, 2, 0, 3));
  EXPECT_THAT(order.next(), ElementsAre(3, 0, 1, 2));
  EXPECT_THAT(order.next(), ElementsAre(0, 2, 3, 1));
  EXPECT_THAT(order.next(), ElementsAre(3, 2, 1, 0));
  EXPECT_THAT(ScriptOrder(4, 42).next(), ElementsAre(1, 0, 3, 2));
  EXPECT_THAT(ScriptOrder(5, 0).next(), ElementsAre(2, 0, 1, 3, 4));
  EXPECT_THAT(ScriptOrder(5, std::numeric_limits<std::uint64_t>::max()).next(), ElementsAre(1, 3, 2, 4, 0));
}

TEST(ScriptOrder, OfFewScriptsIsThatOrder) {
  EXPECT_THAT(ScriptOrder(0, 1).next(), IsEmpty());
  EXPECT_THAT(ScriptOrder(1, 1).next(), ElementsAre(0));
}

TEST(ScriptOrder, GivesAllOrdersEquallyOften) {
  std::map<std::vector<std::size_t>, int> counts;
  ScriptOrder order(3, 1);
  constexpr int ORDERS = 6;
  constexpr int AVERAGE = 10'000;
  for (int i = 0; i < ORDERS * AVERAGE; ++i) {
    ++counts[order.next()];
  }
  ASSERT_EQ(counts.size(), std::size_t{ORDERS});
  for (const auto& [found, count] : counts) {
    // Five standard deviations around a sixth.
    EXPECT_NEAR(count, AVERAGE, 460);
  }
}

}  // namespace
}  // namespace quobrak::host
