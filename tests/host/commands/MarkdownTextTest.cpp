#include "host/commands/MarkdownText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "manual/CommandNotes.h"

namespace quobrak::host {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr std::size_t WIDTH = 30;
const Terminal PLAIN{.isInteractive = false, .hasColour = false, .width = WIDTH};
const Terminal COLOURED{.isInteractive = true, .hasColour = true, .width = WIDTH};

TEST(MarkdownText, LinesEndBeforeTheTerminalDoes) {
  EXPECT_EQ(markdownText("", 0, PLAIN), "");
  EXPECT_EQ(markdownText("twelve and four are sixteen, I", 0, PLAIN), "twelve and four are sixteen, I\n");
  EXPECT_EQ(markdownText("twelve and four are sixteen, II", 0, PLAIN), "twelve and four are sixteen,\nII\n");
  EXPECT_EQ(markdownText("twelve and four are sixteen, I", 1, PLAIN), " twelve and four are sixteen,\n I\n");
  EXPECT_EQ(markdownText("ééééé ééééé ééééé ééééé ééééé", 0, PLAIN), "ééééé ééééé ééééé ééééé ééééé\n")
      << "columns, not bytes";
}

TEST(MarkdownText, AWordThatIsTooLongStaysWhole) {
  const std::string longWord(40, 'x');
  EXPECT_EQ(markdownText("a " + longWord + " b", 2, PLAIN), "  a\n  " + longWord + "\n  b\n");
}

TEST(MarkdownText, WhereTheIndentLeavesNoRoomLinesAreTooLongRatherThanSingleWords) {
  EXPECT_EQ(markdownText("one two three four five", 28, PLAIN),
            std::string(28, ' ') + "one two three four\n" + std::string(28, ' ') + "five\n");
}

TEST(MarkdownText, WhatIsInBackticksIsBoldWhereThereIsColour) {
  EXPECT_EQ(markdownText("`true` or `in the end`, so", 0, PLAIN), "`true` or `in the end`, so\n");
  EXPECT_EQ(markdownText("`true` or `in the end`, so", 0, COLOURED),
            "\x1b[1mtrue\x1b[0m or \x1b[1min\x1b[0m \x1b[1mthe\x1b[0m \x1b[1mend\x1b[0m, so\n");
  EXPECT_EQ(markdownText("twelve and `four` are sixteen, I", 0, COLOURED),
            "twelve and \x1b[1mfour\x1b[0m are sixteen, I\n")
      << "styles take no columns";
}

TEST(MarkdownText, OfALinkTheTextIsLeft) {
  EXPECT_EQ(markdownText("see [the page](a.md#b), [c](d)", 0, PLAIN), "see the page, c\n");
  EXPECT_EQ(markdownText("no [link] (here)", 0, PLAIN), "no [link] (here)\n");
  EXPECT_EQ(markdownText("`[code](x)`", 0, PLAIN), "`[code](x)`\n");
  EXPECT_EQ(markdownText("[open](end", 0, PLAIN), "[open](end\n");
}

TEST(MarkdownText, ItemsOfListsHangBehindTheirBeginning) {
  EXPECT_EQ(markdownText("First:\n\n1. one two three four five six seven\n12. b\n- c", 2, PLAIN),
            "  First:\n\n  1. one two three four five\n     six seven\n  12. b\n  - c\n");
}

TEST(MarkdownText, TextThatIsNoMarkdownIsBrokenAsItStands) {
  EXPECT_EQ(wrappedText("[a](b) and `c` and some more text", 2, COLOURED), "  [a](b) and `c` and some more\n  text\n");
}

/// What stands in notes and is not turned into text of a terminal would be seen.
TEST(MarkdownText, NotesHaveNoOtherMarkdown) {
  for (const manual::CommandGroup& group : manual::commandNotes()) {
    for (const manual::CommandNote& note : group.notes) {
      for (const char* const sign : {"**", "~~", "\n#", "\n>", "\n|", "![", "```", "]["}) {
        EXPECT_THAT(group.introduction + note.description, Not(HasSubstr(sign))) << note.name;
      }
    }
  }
}

}  // namespace
}  // namespace quobrak::host
