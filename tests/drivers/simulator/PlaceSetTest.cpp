#include "drivers/simulator/PlaceSet.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::size_t LENGTH = 200;

PlaceSet setOf(std::initializer_list<std::size_t> places) {
  PlaceSet set(LENGTH);
  for (const std::size_t place : places) {
    set.insert(place);
  }
  return set;
}

std::vector<std::size_t> placesOf(const PlaceSet& set) {
  std::vector<std::size_t> places;
  set.forEach([&places](std::size_t place) { places.push_back(place); });
  return places;
}

TEST(PlaceSet, IsEmptyAtFirst) {
  EXPECT_TRUE(PlaceSet(LENGTH).isEmpty());
  EXPECT_THAT(placesOf(PlaceSet(LENGTH)), IsEmpty());
  EXPECT_TRUE(PlaceSet(0).isEmpty());
}

TEST(PlaceSet, HoldsWhatWasInsertedInAscendingOrder) {
  const PlaceSet set = setOf({199, 64, 0, 63, 64});
  EXPECT_THAT(placesOf(set), ElementsAre(0, 63, 64, 199));
  EXPECT_FALSE(set.isEmpty());
  EXPECT_TRUE(set.contains(63));
  EXPECT_TRUE(set.contains(199));
  EXPECT_FALSE(set.contains(62));
  EXPECT_FALSE(set.contains(198));
}

TEST(PlaceSet, InsertsPlacesInARow) {
  constexpr std::size_t BEGINNINGS[] = {0, 1, 63, 64, 65, 128};
  constexpr std::size_t ENDS[] = {0, 1, 63, 64, 65, 127, 128, 129, 192, 200};
  for (const std::size_t begin : BEGINNINGS) {
    for (const std::size_t end : ENDS) {
      PlaceSet set(LENGTH);
      set.insert(begin, end);
      std::vector<std::size_t> expected;
      for (std::size_t place = begin; place < end; ++place) {
        expected.push_back(place);
      }
      EXPECT_EQ(placesOf(set), expected) << begin << " to " << end;
    }
  }
}

TEST(PlaceSet, UnionIntersectionAndDifference) {
  const PlaceSet odd = setOf({1, 3, 65, 191});
  const PlaceSet low = setOf({1, 2, 3, 64});
  EXPECT_THAT(placesOf(PlaceSet(odd) |= low), ElementsAre(1, 2, 3, 64, 65, 191));
  EXPECT_THAT(placesOf(PlaceSet(odd) &= low), ElementsAre(1, 3));
  EXPECT_THAT(placesOf(PlaceSet(odd) -= low), ElementsAre(65, 191));
  EXPECT_EQ(PlaceSet(odd) -= odd, PlaceSet(LENGTH));
}

}  // namespace
}  // namespace quobrak::simulator
