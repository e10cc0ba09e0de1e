#include "manual/Markdown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::manual {
namespace {

std::string words(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += (i == 0 ? "" : " ") + std::string("123456789");
  }
  return text;
}

TEST(Markdown, LinesAreBrokenBetweenWordsAt120) {
  EXPECT_EQ(wrapped(words(12)), words(12) + "\n");
  EXPECT_EQ(wrapped(words(12) + " x"), words(12) + "\nx\n") << "119 and two more";
  EXPECT_EQ(wrapped(words(13)), words(12) + "\n123456789\n");
  EXPECT_EQ(wrapped(words(25)), words(12) + "\n" + words(12) + "\n123456789\n");
}

TEST(Markdown, AWordThatIsTooLongStaysWhole) {
  const std::string longWord(200, 'x');
  EXPECT_EQ(wrapped("a " + longWord + " b"), "a\n" + longWord + "\nb\n");
}

TEST(Markdown, WhatIsInBackticksIsOneWord) {
  const std::string code = "`" + words(3) + "`";
  EXPECT_EQ(wrapped(words(11) + " " + code + " end"), words(11) + "\n" + code + " end\n");
}

TEST(Markdown, LinesOfTheTextStayApart) {
  EXPECT_EQ(wrapped("one\n\ntwo\nthree"), "one\n\ntwo\nthree\n");
  EXPECT_EQ(wrapped("one\n"), "one\n");
  EXPECT_EQ(wrapped(""), "");
}

TEST(Markdown, ItemsOfListsAreIndented) {
  EXPECT_EQ(wrapped("- " + words(13)), "- " + words(11) + "\n  " + words(2) + "\n");
  EXPECT_EQ(wrapped("3. " + words(13)), "3. " + words(11) + "\n   " + words(2) + "\n");
  EXPECT_EQ(wrapped("-" + words(13)), "-" + words(12) + "\n123456789\n");
  EXPECT_EQ(wrapped("0. " + words(13)), "0. " + words(11) + "\n" + words(2) + "\n");
}

TEST(Markdown, ATableHasAHeaderAndRows) {
  EXPECT_EQ(table({"A", "B"}, {{"1", "2"}, {"3", "4"}}), "| A | B |\n|---|---|\n| 1 | 2 |\n| 3 | 4 |\n");
}

TEST(Markdown, ATableWithoutRowsIsNone) {
  EXPECT_EQ(table({"A", "B"}, {}), "");
}

TEST(Markdown, CodeStandsInBackticksOrInABlock) {
  EXPECT_EQ(inCode("a b"), "`a b`");
  EXPECT_EQ(block("a\nb"), "```\na\nb\n```\n");
}

TEST(Markdown, AnAnchorIsTheHeadingInSmallLettersWithoutSigns) {
  for (const auto& [heading, anchor] :
       {std::pair{"clickByXY", "clickbyxy"}, std::pair{"The App Store", "the-app-store"},
        std::pair{"n-th, 2 of them", "n-th-2-of-them"}}) {
    EXPECT_EQ(anchorOf(heading), anchor);
  }
}

}  // namespace
}  // namespace quobrak::manual
