#include "host/program/Paragraphs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Paragraphs, StandBetweenEmptyLines) {
  const std::vector<Paragraph> paragraphs = paragraphsOf("\none\nline\n\n\ntwo\n");
  ASSERT_EQ(paragraphs.size(), 2U);
  EXPECT_THAT(paragraphs[0].lines, ElementsAre("one", "line"));
  EXPECT_FALSE(paragraphs[0].isKept);
  EXPECT_THAT(paragraphs[1].lines, ElementsAre("two"));
}

TEST(Paragraphs, AreKeptWhereTheyBeginWithABlank) {
  const std::vector<Paragraph> paragraphs = paragraphsOf("one\n\n  two\n three");
  ASSERT_EQ(paragraphs.size(), 2U);
  EXPECT_FALSE(paragraphs[0].isKept);
  EXPECT_TRUE(paragraphs[1].isKept);
  EXPECT_THAT(paragraphs[1].lines, ElementsAre("  two", " three"));
}

TEST(Paragraphs, AreNoneInAnEmptyText) {
  EXPECT_THAT(paragraphsOf(""), IsEmpty());
  EXPECT_THAT(paragraphsOf("\n\n"), IsEmpty());
}

TEST(Paragraphs, AreBrokenBetweenWords) {
  EXPECT_THAT(brokenInto(7, "one two three"), ElementsAre("one two", "three"));
  EXPECT_THAT(brokenInto(6, "one two three"), ElementsAre("one", "two", "three"));
  EXPECT_THAT(brokenInto(80, "  one \n two  "), ElementsAre("one two"));
  EXPECT_THAT(brokenInto(3, "a longest b"), ElementsAre("a", "longest", "b"));
  EXPECT_THAT(brokenInto(80, ""), ElementsAre(""));
}

TEST(Paragraphs, AreMeasuredInColumns) {
  EXPECT_THAT(brokenInto(9, "設定 設定"), ElementsAre("設定 設定"));
  EXPECT_THAT(brokenInto(8, "設定 設定"), ElementsAre("設定", "設定"));
}

TEST(Words, AreJoinedWithSeparatorsBetweenThem) {
  EXPECT_EQ(joined({"one", "two", "three"}, ", "), "one, two, three");
  EXPECT_EQ(joined({"one"}, ", "), "one");
  EXPECT_EQ(joined({}, ", "), "");
}

}  // namespace
}  // namespace quobrak::host
