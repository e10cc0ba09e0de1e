#include "host/report/LiveLines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include "tests/host/report/TestScreen.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LiveLinesTest : public ::testing::Test {
 protected:
  std::vector<std::string> rows() const {
    TestScreen screen(20);
    screen.write(out.str());
    return screen.rows();
  }

  std::ostringstream out;
  std::optional<LiveLines> lines{std::in_place, out};
};

TEST_F(LiveLinesTest, AreDrawnOver) {
  lines->draw({"one, which is long", "two", "three"});
  EXPECT_THAT(rows(), ElementsAre("one, which is long", "two", "three"));
  lines->draw({"1", "2"});
  EXPECT_THAT(rows(), ElementsAre("1", "2"));
  lines->draw({"1", "2", "3", "4"});
  EXPECT_THAT(rows(), ElementsAre("1", "2", "3", "4"));
}

TEST_F(LiveLinesTest, AreNotDrawnAgainWhereNothingHasChanged) {
  lines->draw({"one"});
  const std::string before = out.str();
  lines->draw({"one"});
  EXPECT_EQ(out.str(), before);
}

TEST_F(LiveLinesTest, StayBelowWhatIsPrinted) {
  lines->print("before");
  lines->draw({"one", "two"});
  lines->print("this is wider than the screen");
  lines->print("n");
  EXPECT_THAT(rows(), ElementsAre("before", "this is wider than t", "he screen", "n", "one", "two"));
  lines->draw({"1"});
  EXPECT_THAT(rows(), ElementsAre("before", "this is wider than t", "he screen", "n", "1"));
}

TEST_F(LiveLinesTest, LeaveNothingWhenTheyAreErased) {
  lines->print("before");
  lines->draw({"one", "two"});
  lines->erase();
  EXPECT_THAT(rows(), ElementsAre("before"));
  TestScreen screen(20);
  screen.write(out.str());
  EXPECT_EQ(screen.cursorRow(), 1U);
}

TEST_F(LiveLinesTest, LeaveNothingWhenTheyAreGone) {
  lines->draw({"one", "two"});
  lines.reset();
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(LiveLinesTest, WriteNothingWhereNothingWasDrawn) {
  lines.reset();
  EXPECT_EQ(out.str(), "");
}

}  // namespace
}  // namespace quobrak::host
