#include "drivers/simulator/TextDirection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace quobrak::simulator::painting {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextDirection, KnowsTheCodePointsOfAText) {
  EXPECT_THAT(codePointsOf(""), IsEmpty());
  EXPECT_THAT(codePointsOf("aß…س😀"), ElementsAre(0x61, 0xDF, 0x2026, 0x633, 0x1F600));
}

TEST(TextDirection, IsTheOneOfTheFirstLetter) {
  const struct {
    std::string_view text;
    bool isRightToLeft;
  } rows[] = {
      {"", false},         {"abc", false},     {"123", false},   {"٢٨", false},
      {"سلام", true},      {"שלום", true},     {"٢٨ ر.س", true}, {"12 سلام abc", true},
      {"abc سلام", false}, {"… (سلام)", true}, {"日本", false},  {"👋 سلام", true},
      {"\xFF سلام", true}, {"\u200F12", true}, {"café", false},  {"Привет سلام", false},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(isRightToLeft(row.text), row.isRightToLeft) << row.text;
  }
}

TEST(TextDirection, GivesEachCodePointALevel) {
  const struct {
    std::string_view text;
    int base;
    std::string_view levels;
  } rows[] = {
      {"", 0, ""},
      {"abc", 0, "000"},
      {"سل", 1, "11"},
      {"a سل b", 0, "001100"},
      {"سل ab ٥٠", 1, "11122122"},
      {"سل 12", 1, "11122"},
      {"a سل 12", 0, "0011122"},
      {"12", 0, "00"},
  };
  for (const auto& row : rows) {
    const ParagraphLevels found = levelsOf(codePointsOf(row.text));
    std::string levels;
    for (const int level : found.levels) {
      levels += std::to_string(level);
    }
    EXPECT_EQ(levels, row.levels) << row.text;
    EXPECT_EQ(found.base, row.base) << row.text;
  }
}

// A glyph for each character, with the level that stands below it.
std::string visual(std::string_view text, std::string_view levels, int paragraphLevel) {
  std::vector<Glyph> line;
  for (std::size_t number = 0; number < text.size(); ++number) {
    line.push_back({.index = static_cast<unsigned char>(text[number]),
                    .level = static_cast<signed char>(levels[number] - '0'),
                    .paragraphLevel = static_cast<signed char>(paragraphLevel)});
  }
  std::string result;
  for (const Glyph& glyph : inVisualOrder(line)) {
    result += static_cast<char>(glyph.index);
  }
  return result;
}

TEST(TextDirection, PutsALineInTheOrderInWhichItStands) {
  EXPECT_EQ(visual("", "", 1), "");
  EXPECT_EQ(visual("abc", "000", 0), "abc");
  EXPECT_EQ(visual("abc", "111", 1), "cba");
  EXPECT_EQ(visual("abc def 12", "0000111122", 0), "abc 12 fed");
  EXPECT_EQ(visual("abc 12 def", "1111221222", 1), "def 12 cba");
}

}  // namespace
}  // namespace quobrak::simulator::painting
