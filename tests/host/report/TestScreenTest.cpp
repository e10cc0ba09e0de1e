#include "tests/host/report/TestScreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> shownAfter(std::string_view text, std::size_t width = 10) {
  TestScreen screen(width);
  screen.write(text);
  return screen.rows();
}

TEST(TestScreen, ShowsWhatIsWritten) {
  EXPECT_THAT(shownAfter(""), IsEmpty());
  EXPECT_THAT(shownAfter("one\ntwo\n"), ElementsAre("one", "two"));
  EXPECT_THAT(shownAfter("\x1b[1mone\x1b[0m \n\ntwo"), ElementsAre("one", "", "two"));
}

TEST(TestScreen, WritesOver) {
  EXPECT_THAT(shownAfter("one\ntwo\n\x1b[2Aan\nT"), ElementsAre("ane", "Two"));
  EXPECT_THAT(shownAfter("one\ntwo\n\x1b[2A\x1b[Kan\n"), ElementsAre("an", "two"));
  EXPECT_THAT(shownAfter("one\ntwo\n\x1b[2A\x1b[J"), IsEmpty());
}

TEST(TestScreen, BreaksLinesThatAreTooWide) {
  EXPECT_THAT(shownAfter("abcdefg", 3), ElementsAre("abc", "def", "g"));
  EXPECT_THAT(shownAfter("設定設", 5), ElementsAre("設定", "設"));
  EXPECT_THAT(shownAfter("abc\ndef", 3), ElementsAre("abc", "def"));
  EXPECT_THAT(shownAfter("abc\x1b[K", 3), ElementsAre("ab"));
}

TEST(TestScreen, KnowsWhereTheCursorIs) {
  TestScreen screen(3);
  screen.write("abcd\n");
  EXPECT_EQ(screen.cursorRow(), 2U);
  screen.write("\x1b[1A");
  EXPECT_EQ(screen.cursorRow(), 1U);
}

TEST(TestScreen, KnowsNothingElse) {
  EXPECT_FATAL_FAILURE(TestScreen(3).write("\x1b[2Kx"), "an unknown sequence: 2K");
  EXPECT_FATAL_FAILURE(TestScreen(3).write("\x1b[2A"), "up beyond the first row");
  EXPECT_FATAL_FAILURE(TestScreen(3).write("\x1b[12"), "a sequence that does not end");
  EXPECT_FATAL_FAILURE(TestScreen(3).write("\tx"), "a control character");
}

}  // namespace
}  // namespace quobrak::host
