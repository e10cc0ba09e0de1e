#include "platform/foundation/TextPlace.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>

namespace quobrak {

namespace {

using namespace std::string_view_literals;

TEST(TextPlace, CountsLinesAndColumnsFromOne) {
  struct Row {
    std::string_view text;
    std::size_t offset;
    TextPlace place;
  };
  const Row ROWS[] = {
      {"", 0, {1, 1}},      {"abc", 0, {1, 1}},   {"abc", 2, {1, 3}},      {"abc", 3, {1, 4}}, {"a\nbc", 1, {1, 2}},
      {"a\nbc", 2, {2, 1}}, {"a\nbc", 3, {2, 2}}, {"a\n\n\nb", 4, {4, 1}}, {"a\n", 2, {2, 1}}, {"a\r\nb", 3, {2, 1}},
      {"a\rb", 2, {1, 3}},  {"\t\tx", 2, {1, 3}}, {"\0\nx"sv, 2, {2, 1}},
  };
  for (const auto& [text, offset, place] : ROWS) {
    const TextPlace found = placeInText(text, offset);
    EXPECT_EQ(found.line, place.line) << text << " " << offset;
    EXPECT_EQ(found.column, place.column) << text << " " << offset;
  }
}

TEST(TextPlace, AColumnIsACodePoint) {
  constexpr std::string_view TEXT = "ä€🙂e\u0301x\nüx";
  struct Row {
    std::string_view before;
    TextPlace place;
  };
  const Row ROWS[] = {
      {"ä", {1, 2}},
      {"ä€", {1, 3}},
      {"ä€🙂", {1, 4}},
      {"ä€🙂e\u0301", {1, 6}},
      {"ä€🙂e\u0301x\nü", {2, 2}},
  };
  for (const auto& [before, place] : ROWS) {
    ASSERT_TRUE(TEXT.starts_with(before));
    EXPECT_EQ(placeInText(TEXT, before.size()).line, place.line) << before;
    EXPECT_EQ(placeInText(TEXT, before.size()).column, place.column) << before;
  }
}

TEST(TextPlace, AColumnLeadsBackToItsOffset) {
  constexpr std::string_view LINE = "ä€🙂e\u0301x";
  for (std::size_t column = 1; column <= 7; ++column) {
    EXPECT_EQ(placeInText(LINE, offsetOfColumn(LINE, column)).column, column);
  }
  EXPECT_EQ(offsetOfColumn(LINE, 1), 0U);
  EXPECT_EQ(offsetOfColumn(LINE, 4), 9U);
  EXPECT_EQ(offsetOfColumn(LINE, 7), LINE.size());
  EXPECT_EQ(offsetOfColumn(LINE, 100), LINE.size());
}

TEST(TextPlace, APlaceComesBeforeAllOfLaterLines) {
  EXPECT_LT((TextPlace{1, 9}), (TextPlace{2, 1}));
  EXPECT_LT((TextPlace{2, 1}), (TextPlace{2, 2}));
  EXPECT_EQ(TextPlace(), (TextPlace{1, 1}));
}

}  // namespace
}  // namespace quobrak
