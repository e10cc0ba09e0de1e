#include "host/pictures/StyledText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

StyledRun plain(std::size_t column, const std::string& text) {
  return {.column = column, .isBold = false, .colour = Style::plain, .text = text};
}

TEST(StyledText, HasTheLinesThatWerePrinted) {
  EXPECT_THAT(styledLines("one\n\ntwo\n"),
              ElementsAre(ElementsAre(plain(0, "one")), IsEmpty(), ElementsAre(plain(0, "two"))));
  EXPECT_THAT(styledLines("one"), ElementsAre(ElementsAre(plain(0, "one"))));
  EXPECT_THAT(styledLines(""), IsEmpty());
}

TEST(StyledText, IsCutAtGaps) {
  EXPECT_THAT(styledLines("  a b   c  \n"), ElementsAre(ElementsAre(plain(2, "a b"), plain(8, "c"))));
}

TEST(StyledText, CountsColumnsOfWideCharacters) {
  EXPECT_THAT(styledLines("設定  c\n"), ElementsAre(ElementsAre(plain(0, "設定"), plain(6, "c"))));
}

TEST(StyledText, HasTheStylesThatWereChosen) {
  EXPECT_THAT(styledLines("\x1b[31mno\x1b[0m: \x1b[1mb\x1b[0m\n"),
              ElementsAre(ElementsAre(StyledRun{.column = 0, .isBold = false, .colour = Style::red, .text = "no"},
                                      plain(2, ":"),
                                      StyledRun{.column = 4, .isBold = true, .colour = Style::plain, .text = "b"})));
  EXPECT_THAT(styledLines("\x1b[1;34mx\x1b[my"),
              ElementsAre(ElementsAre(StyledRun{.column = 0, .isBold = true, .colour = Style::blue, .text = "x"},
                                      plain(1, "y"))));
}

TEST(StyledText, KeepsAStyleOverTheEndOfALine) {
  EXPECT_THAT(styledLines("\x1b[2ma\nb\x1b[0m"),
              ElementsAre(ElementsAre(StyledRun{.column = 0, .isBold = false, .colour = Style::dim, .text = "a"}),
                          ElementsAre(StyledRun{.column = 0, .isBold = false, .colour = Style::dim, .text = "b"})));
}

TEST(StyledText, RefusesWhatMovesTheCursorOrIsUnknown) {
  for (const char* const printed : {"a\rb", "a\tb", "\x1b[2J", "\x1b[1",
                                    "\x1b"
                                    "c",
                                    "\x1b[35mx"}) {
    EXPECT_THROW(styledLines(printed), std::invalid_argument) << printed;
  }
}

}  // namespace
}  // namespace quobrak::host
