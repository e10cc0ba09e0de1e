#include "drivers/simulator/PageSourceError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

TEST(PageSourceError, OneFaultIsOneLine) {
  const PageSourceError error({{3, 14, "x is wrong"}});
  EXPECT_STREQ(error.what(), "line 3, column 14: x is wrong");
  EXPECT_THAT(error.faults(), ElementsAre(PageSourceFault{3, 14, "x is wrong"}));
  EXPECT_EQ(error.unlisted(), 0);
}

TEST(PageSourceError, SeveralFaultsAreSeveralLines) {
  const PageSourceError error({{1, 2, "one"}, {1, 2, "two"}}, 7);
  EXPECT_STREQ(error.what(), "line 1, column 2: one\nline 1, column 2: two\nand 7 more");
  EXPECT_EQ(error.unlisted(), 7);
}

TEST(PageSourceFaults, CountLinesAndCharacters) {
  const std::string text = "ab\nÄ🙂👍🏽c\n\n  d";
  PageSourceFaults faults(text);
  EXPECT_TRUE(faults.empty());
  for (const char* place : {"ab", "b\n", "Ä", "c\n", "\n  d", "d"}) {
    faults.add(text.find(place), place);
  }
  faults.add(text.find('d'), "d again");
  faults.add(text.size(), "the end");
  EXPECT_FALSE(faults.empty());
  EXPECT_THAT(faults.error().faults(),
              ElementsAre(PageSourceFault{1, 1, "ab"}, PageSourceFault{1, 2, "b\n"}, PageSourceFault{2, 1, "Ä"},
                          PageSourceFault{2, 4, "c\n"}, PageSourceFault{3, 1, "\n  d"}, PageSourceFault{4, 3, "d"},
                          PageSourceFault{4, 3, "d again"}, PageSourceFault{4, 4, "the end"}));
}

TEST(PageSourceFaults, OnlyTheFirstTwentyAreListed) {
  const std::string text(30, '\n');
  PageSourceFaults faults(text);
  for (std::size_t line = 0; line < PageSourceError::MOST_FAULTS; ++line) {
    faults.add(line, "wrong");
  }
  EXPECT_EQ(faults.error().unlisted(), 0);
  faults.add(20, "wrong");
  faults.add(21, "wrong");
  const PageSourceError error = faults.error();
  EXPECT_THAT(error.faults(), SizeIs(20));
  EXPECT_EQ(error.faults().back(), (PageSourceFault{20, 1, "wrong"}));
  EXPECT_EQ(error.unlisted(), 2);
  EXPECT_TRUE(std::string(error.what()).ends_with("\nline 20, column 1: wrong\nand 2 more")) << error.what();
}

}  // namespace
}  // namespace quobrak::simulator
