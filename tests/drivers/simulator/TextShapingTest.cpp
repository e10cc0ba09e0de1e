#include "drivers/simulator/TextShaping.h"

#include "drivers/simulator/TextDirection.h"
#include "drivers/simulator/TextFont.h"
#include "drivers/simulator/TextLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace quobrak::simulator::painting {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

using Indices = std::vector<unsigned long>;

std::vector<Glyph> glyphsOf(std::string_view text) {
  return TextFont::regular().glyphsOf(text);
}

Indices indicesOf(const std::vector<Glyph>& glyphs) {
  Indices indices;
  for (const Glyph& glyph : glyphs) {
    indices.push_back(glyph.index);
  }
  return indices;
}

// As the text stands from left to right.
Indices shown(std::string_view text) {
  return indicesOf(inVisualOrder(glyphsOf(text)));
}

Indices joined(std::initializer_list<Indices> parts) {
  Indices all;
  for (const Indices& part : parts) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

double widthOfText(std::string_view text) {
  return widthOf(glyphsOf(text));
}

TEST(TextShaping, IsNeededFromTheCombiningMarksOn) {
  const struct {
    std::string_view text;
    bool isNeeded;
  } rows[] = {
      {"", false},      {"plain", false}, {"café ÿ ʯ", false}, {"e\u0301", true},
      {"Привет", true}, {"שלום", true},   {"سلام", true},      {"😀", true},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(needsShaping(row.text), row.isNeeded) << row.text;
  }
}

TEST(TextShaping, JoinsArabicLettersFromRightToLeft) {
  const Indices seen = shown("سلام");

  // Lam and alef have grown together; the letter after alef is never joined to it.
  ASSERT_EQ(seen.size(), 3U);
  EXPECT_EQ(seen[0], shown("م").front());
  for (const std::string_view alone : {"س", "ل", "ا", "م"}) {
    EXPECT_NE(seen[1], shown(alone).front());
    EXPECT_NE(seen[2], shown(alone).front());
  }
  EXPECT_EQ(seen[2], shown("سـ").back());
}

TEST(TextShaping, JoinsEachLetterAsItsPlaceInTheWordWants) {
  const Indices word = shown("ببب");

  EXPECT_THAT(word, ElementsAre(shown("ـب").front(), shown("ـبـ")[1], shown("بـ").back()));
  EXPECT_THAT(word, Not(Contains(shown("ب").front())));
}

TEST(TextShaping, LeavesOtherDirectionsInTheirPlaceOfTheLine) {
  EXPECT_EQ(shown("abc سلام 12"), joined({shown("abc 12 "), shown("سلام")}));
  EXPECT_EQ(shown("٥٠٠ غرام"), joined({shown("غرام"), shown(" "), shown("٥٠٠")}));
  EXPECT_EQ(shown("سلام abc"), joined({shown("abc "), shown("سلام")}));
  EXPECT_EQ(shown("سلام 👋 abc"), joined({shown("abc "), shown("👋"), shown(" "), shown("سلام")}));
}

TEST(TextShaping, MirrorsBracketsInTextFromRightToLeft) {
  EXPECT_EQ(shown("(شلل)"), joined({shown("("), shown("شلل"), shown(")")}));
}

TEST(TextShaping, FollowsEachScriptInALineOfSeveral) {
  EXPECT_EQ(shown("שלום سلام"), joined({shown("سلام"), shown(" "), shown("שלום")}));
}

TEST(TextShaping, KeepsMarksOnTheirLetters) {
  const std::vector<Glyph> glyphs = glyphsOf("خُبز");

  ASSERT_EQ(glyphs.size(), 4U);
  EXPECT_FALSE(glyphs[0].isAttached);
  EXPECT_TRUE(glyphs[1].isAttached);
  EXPECT_FALSE(glyphs[2].isAttached);
  EXPECT_EQ(glyphs[1].advance, 0);
  EXPECT_NE(glyphs[1].right, 0);
  EXPECT_EQ(widthOf(glyphs), widthOfText("خبز"));
  EXPECT_EQ(widthOfText("x\u0323\u0301y"), widthOfText("xy"));
}

TEST(TextShaping, DoesNotPartALetterFromAMarkOfAnotherScript) {
  const std::vector<Glyph> glyphs = glyphsOf("x\u0483");

  ASSERT_EQ(glyphs.size(), 2U);
  EXPECT_TRUE(glyphs[1].isAttached);
}

TEST(TextShaping, KnowsWhereLinesMayBreakBehindACharacterOfSeveralCodePoints) {
  const std::vector<Glyph> glyphs = glyphsOf("👨‍👩‍👧 a日");

  ASSERT_EQ(glyphs.size(), 4U);
  EXPECT_EQ(glyphs[0].kind, Glyph::Kind::IDEOGRAPH);
  EXPECT_EQ(glyphs[1].kind, Glyph::Kind::BLANK);
  EXPECT_EQ(glyphs[2].kind, Glyph::Kind::INK);
  EXPECT_EQ(glyphs[3].kind, Glyph::Kind::IDEOGRAPH);
}

TEST(TextShaping, ComposesALetterWithItsMarkWhereTheFontHasBothAsOne) {
  EXPECT_EQ(shown("e\u0301"), shown("é"));
}

TEST(TextShaping, MakesOneBoxOfACharacterThatTheFontLacks) {
  for (const std::string_view character :
       {"日", "👋", "👋🏽", "👨‍👩‍👧", "🇯🇵", "か\u3099", "x\U0001D167"}) {
    EXPECT_THAT(shown(character), ElementsAre(0)) << character;
    EXPECT_EQ(widthOfText(character), widthOfText("日")) << character;
  }
  EXPECT_THAT(shown("日本"), ElementsAre(0, 0));
  EXPECT_THAT(shown("👋🏽👋"), ElementsAre(0, 0));
}

TEST(TextShaping, DrawsNothingForCharactersThatAreNotSeen) {
  EXPECT_EQ(shown("a\u200Fb"), shown("ab"));
  EXPECT_EQ(shown("❤\uFE0F"), shown("❤"));
}

TEST(TextShaping, DrawsLatinTextAsIfNothingElseWereThere) {
  for (const TextFont* font : {&TextFont::regular(), &TextFont::bold()}) {
    const std::vector<Glyph> plain = font->glyphsOf("AV Toffifee\tfi");
    const std::vector<Glyph> shaped = font->glyphsOf("AV Toffifee\tfi…");
    ASSERT_EQ(shaped.size(), plain.size() + 1);
    for (std::size_t number = 0; number < plain.size(); ++number) {
      EXPECT_EQ(shaped[number].index, plain[number].index) << number;
      EXPECT_EQ(shaped[number].advance, plain[number].advance) << number;
      EXPECT_EQ(shaped[number].kind, plain[number].kind) << number;
    }
  }
}

TEST(TextShaping, GivesEachParagraphADirectionOfItsOwn) {
  const std::vector<Glyph> glyphs = glyphsOf("a\nس\r\nb\n");

  ASSERT_EQ(glyphs.size(), 7U);
  EXPECT_EQ(glyphs[0].paragraphLevel, 0);
  EXPECT_EQ(glyphs[1].kind, Glyph::Kind::NEWLINE);
  EXPECT_EQ(glyphs[2].paragraphLevel, 1);
  EXPECT_EQ(glyphs[3].kind, Glyph::Kind::NEWLINE);
  EXPECT_EQ(glyphs[4].kind, Glyph::Kind::NEWLINE);
  EXPECT_EQ(glyphs[5].paragraphLevel, 0);
  EXPECT_EQ(glyphs[6].kind, Glyph::Kind::NEWLINE);
}

}  // namespace
}  // namespace quobrak::simulator::painting
