#include "fuzz/support/Input.h"

#include <gtest/gtest.h>

namespace quobrak::fuzz {

TEST(Input, GivesBytesLinesAndWhatIsLeft) {
  constexpr std::uint8_t DATA[]{7, 'a', 'b', '\n', '\n', 'c', '\n', 'd'};
  Input input(DATA, sizeof DATA);
  EXPECT_EQ(input.byte(), 7);
  EXPECT_EQ(input.line(), "ab");
  EXPECT_EQ(input.line(), "");
  EXPECT_FALSE(input.isAtEnd());
  EXPECT_EQ(input.rest(), "c\nd");
  EXPECT_TRUE(input.isAtEnd());
}

TEST(Input, AtItsEndEverythingIsEmpty) {
  Input input("a");
  EXPECT_EQ(input.line(), "a");
  EXPECT_TRUE(input.isAtEnd());
  EXPECT_EQ(input.line(), "");
  EXPECT_EQ(input.textLine(), "");
  EXPECT_EQ(input.byte(), 0);
  EXPECT_EQ(input.rest(), "");
  EXPECT_EQ(input.textRest(), "");
}

TEST(Input, RepairsWhatIsToBeText) {
  Input input("a\xFF\nb\xC3\n");
  EXPECT_EQ(input.textLine(), "a\uFFFD");
  EXPECT_EQ(input.textRest(), "b\uFFFD\n");
}

}  // namespace quobrak::fuzz
