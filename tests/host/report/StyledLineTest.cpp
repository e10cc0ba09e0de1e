#include "host/report/StyledLine.h"

#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

constexpr Terminal PLAIN;
constexpr Terminal COLOURED{.isInteractive = true, .hasColour = true};

StyledLine sample() {
  StyledLine line;
  line.add(Style::bold, "ab").add(Style::plain, "cd").add(Style::red, "設e");
  return line;
}

TEST(StyledLine, HasItsStyles) {
  EXPECT_EQ(sample().fitted(COLOURED, 7), "\x1b[1mab\x1b[0mcd\x1b[31m設e\x1b[0m");
  EXPECT_EQ(sample().fitted(PLAIN, 7), "abcd設e");
}

TEST(StyledLine, IsCutWithAnEllipsis) {
  EXPECT_EQ(sample().fitted(PLAIN, 6), "abcd…");
  EXPECT_EQ(sample().fitted(PLAIN, 4), "abc…");
  EXPECT_EQ(sample().fitted(COLOURED, 4), "\x1b[1mab\x1b[0mc…");
  EXPECT_EQ(sample().fitted(COLOURED, 3), "\x1b[1mab\x1b[0m…");
  EXPECT_EQ(sample().fitted(COLOURED, 2), "\x1b[1ma\x1b[0m…");
  EXPECT_EQ(sample().fitted(COLOURED, 1), "…");
  EXPECT_EQ(sample().fitted(COLOURED, 0), "");
}

TEST(StyledLine, ShowsControlCharacters) {
  EXPECT_EQ(StyledLine().add(Style::plain, "a\x1b[2J\n").fitted(PLAIN, 10), "a␛[2J␊");
}

TEST(StyledLine, KnowsWhetherItIsEmpty) {
  EXPECT_TRUE(StyledLine().isEmpty());
  EXPECT_TRUE(StyledLine().add(Style::red, "").isEmpty());
  EXPECT_FALSE(StyledLine().add(Style::red, "").add(Style::red, " ").isEmpty());
}

}  // namespace
}  // namespace quobrak::host
