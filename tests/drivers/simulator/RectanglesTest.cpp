#include "drivers/simulator/Rectangles.h"

#include <gtest/gtest.h>

#include <limits>

namespace quobrak::simulator {
namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(Rectangles, TheSharedPart) {
  struct Row {
    Rect one;
    Rect other;
    Rect shared;
  };
  const Row ROWS[] = {
      {{{0, 0}, {10, 10}}, {{5, 6}, {10, 10}}, {{5, 6}, {5, 4}}},
      {{{0, 0}, {10, 10}}, {{2, 3}, {4, 5}}, {{2, 3}, {4, 5}}},
      {{{0, 0}, {10, 10}}, {{-5, -5}, {100, 100}}, {{0, 0}, {10, 10}}},
      {{{0, 0}, {INFINITE, 10}}, {{1, 1}, {20, 20}}, {{1, 1}, {20, 9}}},
  };
  for (const auto& [one, other, shared] : ROWS) {
    EXPECT_EQ(intersection(one, other), shared);
    EXPECT_EQ(intersection(other, one), shared);
  }
}

TEST(Rectangles, ThoseThatShareNothingShareAnEmptyOne) {
  const Rect RECT{{0, 0}, {10, 10}};
  for (const Rect& other : {Rect{{10, 0}, {5, 5}}, Rect{{0, 10}, {5, 5}}, Rect{{-9, 0}, {5, 5}}, Rect{{20, 20}, {5, 5}},
                            Rect{{INFINITE, INFINITE}, {5, 5}}, Rect{{5, 5}, {0, 5}}, Rect{{5, 5}, {-3, 5}}}) {
    EXPECT_TRUE(isEmpty(intersection(RECT, other))) << other.origin.x << ", " << other.origin.y;
    EXPECT_TRUE(isEmpty(intersection(other, RECT))) << other.origin.x << ", " << other.origin.y;
  }
}

TEST(Rectangles, EmptyOnes) {
  EXPECT_FALSE(isEmpty({{0, 0}, {1, 1}}));
  EXPECT_FALSE(isEmpty({{-5, -5}, {0.5, 0.5}}));
  for (const Rect& rect : {Rect{{0, 0}, {0, 1}}, Rect{{0, 0}, {1, 0}}, Rect{{0, 0}, {-1, 1}}, Rect{{0, 0}, {1, -1}},
                           Rect{{INFINITE, 0}, {1, 1}}, Rect{{0, -INFINITE}, {1, 1}}, Rect{{0, 0}, {INFINITE, 1}},
                           Rect{{0, 0}, {1, NOT_A_NUMBER}}, Rect{{NOT_A_NUMBER, 0}, {1, 1}}}) {
    EXPECT_TRUE(isEmpty(rect)) << rect.origin.x << ", " << rect.origin.y << ", " << rect.size.width << ", "
                               << rect.size.height;
  }
}

TEST(Rectangles, TheLeftAndTopEdgeBelongToThem) {
  struct Row {
    Point point;
    bool isContained;
  };
  const Row ROWS[] = {
      {{10, 20}, true},
      {{39.9, 59.9}, true},
      {{25, 40}, true},
      {{40, 20}, false},
      {{10, 60}, false},
      {{9.9, 40}, false},
      {{25, 19.9}, false},
      {{INFINITE, 40}, false},
      {{25, -INFINITE}, false},
      {{NOT_A_NUMBER, 40}, false},
      {{25, NOT_A_NUMBER}, false},
  };
  for (const auto& [point, isContained] : ROWS) {
    EXPECT_EQ(contains({{10, 20}, {30, 40}}, point), isContained) << point.x << ", " << point.y;
  }
}

TEST(Rectangles, PlacesWithinThem) {
  const Rect RECT{{10, 20}, {30, 40}};
  EXPECT_EQ(centre(RECT), (Point{25, 40}));
  EXPECT_EQ(pointAt(RECT, {0, 0}), (Point{10, 20}));
  EXPECT_EQ(pointAt(RECT, {1, 1}), (Point{40, 60}));
  EXPECT_EQ(pointAt(RECT, {-1, 2.5}), (Point{-20, 120}));
}

}  // namespace
}  // namespace quobrak::simulator
