#include "host/terminal/NearestNames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<std::string_view, 6> NAMES{"pause",       "pressHome",    "waitUntilText", "waitUntilTextExact",
                                                "clickByText", "launchBrowser"};

TEST(NearestNames, FindsASlip) {
  EXPECT_THAT(nearestNames("puase", NAMES), ElementsAre("pause"));
  EXPECT_THAT(nearestNames("paus", NAMES), ElementsAre("pause"));
  EXPECT_THAT(nearestNames("pausee", NAMES), ElementsAre("pause"));
  EXPECT_THAT(nearestNames("clickByTxt", NAMES), ElementsAre("clickByText"));
}

TEST(NearestNames, LeavesLetterCaseAside) {
  EXPECT_THAT(nearestNames("clickbytext", NAMES), ElementsAre("clickByText"));
}

TEST(NearestNames, LeavesBlanksAtTheEndsAside) {
  EXPECT_THAT(nearestNames("pause ", NAMES), ElementsAre("pause"));
}

TEST(NearestNames, FindsWhatBeginsSo) {
  EXPECT_THAT(nearestNames("wait", NAMES), ElementsAre("waitUntilText", "waitUntilTextExact"));
  EXPECT_THAT(nearestNames("wa", NAMES), IsEmpty());
}

TEST(NearestNames, PutsTheNearestFirst) {
  constexpr std::array<std::string_view, 3> ALIKE{"scrollUpwards", "scrollUpwardly", "scrollUpward"};
  EXPECT_THAT(nearestNames("scrolUpward", ALIKE), ElementsAre("scrollUpward", "scrollUpwards"));
}

TEST(NearestNames, LeaveOutWhatIsMuchFartherThanTheNearest) {
  constexpr std::array<std::string_view, 2> ALIKE{"clickByXY", "clickByTexts"};
  EXPECT_THAT(nearestNames("clickByTxts", ALIKE), ElementsAre("clickByTexts"));
}

TEST(NearestNames, KnowANameByItsLettersAlone) {
  constexpr std::array<std::string_view, 2> ALIKE{"clickByTexts", "clickByText"};
  EXPECT_THAT(nearestNames("CLICKBYTEXT", ALIKE), ElementsAre("clickByText"));
}

TEST(NearestNames, FindsNothingThatIsFar) {
  EXPECT_THAT(nearestNames("tapOnTheBasket", NAMES), IsEmpty());
  EXPECT_THAT(nearestNames("", NAMES), IsEmpty());
}

TEST(NearestNames, AreThreeAtMost) {
  constexpr std::array<std::string_view, 4> ALIKE{"aaa1", "aaa2", "aaa3", "aaa4"};
  EXPECT_THAT(nearestNames("aaa", ALIKE), ElementsAre("aaa1", "aaa2", "aaa3"));
}

TEST(DidYouMean, ListsNames) {
  EXPECT_EQ(didYouMean({}), "");
  EXPECT_EQ(didYouMean({"a"}), "did you mean a?");
  EXPECT_EQ(didYouMean({"a", "b"}), "did you mean a or b?");
  EXPECT_EQ(didYouMean({"a", "b", "c"}), "did you mean a, b or c?");
}

}  // namespace
}  // namespace quobrak::host
