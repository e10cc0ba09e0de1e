#include "drivers/simulator/TextLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace quobrak::simulator::painting {
namespace {

using testing::ElementsAre;

// Each character is one wide. A capital stands for an ideograph, an apostrophe is part of the character before it.
std::vector<Glyph> glyphsOf(std::string_view text) {
  std::vector<Glyph> glyphs;
  for (const char character : text) {
    Glyph::Kind kind = Glyph::Kind::INK;
    if (character == ' ') {
      kind = Glyph::Kind::BLANK;
    } else if (character == '\n') {
      kind = Glyph::Kind::NEWLINE;
    } else if (character >= 'A' && character <= 'Z') {
      kind = Glyph::Kind::IDEOGRAPH;
    }
    glyphs.push_back(
        {.index = static_cast<unsigned char>(character), .advance = 1, .kind = kind, .isAttached = character == '\''});
  }
  return glyphs;
}

std::string textOf(std::span<const Glyph> glyphs) {
  std::string text;
  for (const Glyph& glyph : glyphs) {
    text += static_cast<char>(glyph.index);
  }
  return text;
}

std::vector<std::string> textsOf(const BrokenText& broken) {
  std::vector<std::string> texts;
  for (const auto& line : broken.lines) {
    texts.push_back(textOf(line));
  }
  return texts;
}

TEST(TextLayout, BreaksLinesWhereTheyMayBeBroken) {
  const struct {
    std::string_view text;
    double width;
    std::vector<std::string> lines;
    bool breaksWords;
  } rows[] = {
      {"", 5, {""}, false},
      {"one", 5, {"one"}, false},
      {"one two", 7, {"one two"}, false},
      {"one two", 6, {"one", "two"}, false},
      {"one two six", 8, {"one two", "six"}, false},
      {"one two", 3, {"one", "two"}, false},
      {"one\ntwo", 20, {"one", "two"}, false},
      {"one\n\ntwo", 20, {"one", "", "two"}, false},
      {"longword", 4, {"long", "word"}, true},
      {"a longword", 4, {"a", "long", "word"}, true},
      {"ABCDE", 2, {"AB", "CD", "E"}, false},
      {"word AB", 6, {"word A", "B"}, false},
      {"wordA", 4, {"word", "A"}, false},
      {"wide", 0.5, {"w", "i", "d", "e"}, true},
      {"lo'ng", 2, {"l", "o'", "ng"}, true},
      {"l''ong", 2, {"l''", "on", "g"}, true},
      {"AB'C", 2, {"A", "B'", "C"}, false},
  };
  for (const auto& row : rows) {
    const auto glyphs = glyphsOf(row.text);
    const BrokenText broken = brokenIntoLines(glyphs, row.width, 10);
    EXPECT_EQ(textsOf(broken), row.lines) << row.text;
    EXPECT_EQ(broken.breaksWords, row.breaksWords) << row.text;
    EXPECT_TRUE(broken.isComplete) << row.text;
  }
}

TEST(TextLayout, StopsAfterTheLastLineThatIsAllowed) {
  const auto glyphs = glyphsOf("one two six ten");

  const BrokenText broken = brokenIntoLines(glyphs, 3, 2);

  EXPECT_THAT(textsOf(broken), ElementsAre("one", "two"));
  EXPECT_FALSE(broken.isComplete);
}

TEST(TextLayout, MeasuresALineWithoutTheBlanksAtItsEnd) {
  EXPECT_EQ(widthOf(glyphsOf("one two  ")), 7);
  EXPECT_EQ(widthOf(glyphsOf("   ")), 0);
}

TEST(TextLayout, ShortensALineToMakeRoomForItsEnding) {
  const auto ending = glyphsOf("..");

  EXPECT_EQ(textOf(shortened(glyphsOf("one two"), ending, 9)), "one two..");
  EXPECT_EQ(textOf(shortened(glyphsOf("one two"), ending, 7)), "one t..");
  EXPECT_EQ(textOf(shortened(glyphsOf("one two"), ending, 6)), "one..");
  EXPECT_EQ(textOf(shortened(glyphsOf("one"), ending, 1)), "..");
  EXPECT_EQ(textOf(shortened(glyphsOf("on'e two"), ending, 4)), "o..");
}

TEST(TextLayout, EndsAShortenedLineInTheDirectionOfItsParagraph) {
  std::vector<Glyph> line = glyphsOf("one two");
  for (Glyph& glyph : line) {
    glyph.level = 2;
    glyph.paragraphLevel = 1;
  }

  const std::vector<Glyph> result = shortened(line, glyphsOf("."), 3);

  ASSERT_EQ(textOf(result), "on.");
  EXPECT_EQ(result[1].level, 2);
  EXPECT_EQ(result[2].level, 1);
  EXPECT_EQ(result[2].paragraphLevel, 1);
}

TEST(TextLayout, KnowsWhereLinesMayBreakByTheCharacter) {
  const struct {
    std::string_view character;
    Glyph::Kind kind;
  } rows[] = {
      {"\n", Glyph::Kind::NEWLINE}, {"\r", Glyph::Kind::NEWLINE},   {" ", Glyph::Kind::BLANK},
      {"\t", Glyph::Kind::BLANK},   {"a", Glyph::Kind::INK},        {"س", Glyph::Kind::INK},
      {"…", Glyph::Kind::INK},      {"日", Glyph::Kind::IDEOGRAPH}, {"👋🏽", Glyph::Kind::IDEOGRAPH},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(kindOf(row.character), row.kind) << row.character;
  }
}

}  // namespace
}  // namespace quobrak::simulator::painting
