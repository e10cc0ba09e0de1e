#include "host/report/LineMeaning.h"

#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

using std::chrono::milliseconds;

TEST(LineMeaning, HasTheCommand) {
  EXPECT_EQ(meaningOf("clickByText,Browse products").command, "clickByText");
  EXPECT_EQ(meaningOf("pressHome").command, "pressHome");
  EXPECT_EQ(meaningOf("").command, "");
}

TEST(LineMeaning, KnowsHowLongAPauseTakes) {
  struct Case {
    std::string line;
    std::optional<milliseconds> pause;
  };
  for (const auto& [line, pause] : {
           Case{"pause,10000", milliseconds(10000)},
           Case{"pause,10000,and more", milliseconds(10000)},
           Case{"pause,0", milliseconds(0)},
           Case{"pause,4294967", milliseconds(4294967)},
           Case{"pause,4294968", std::nullopt},
           Case{"pause,-1", std::nullopt},
           Case{"pause, 10", std::nullopt},
           Case{"pause,", std::nullopt},
           Case{"pause", std::nullopt},
           Case{"Pause,10", std::nullopt},
           Case{"measureStart,10", std::nullopt},
       }) {
    EXPECT_EQ(meaningOf(line).pause, pause) << line;
  }
}

TEST(LineMeaning, KnowsWhereAStepBeginsAndEnds) {
  EXPECT_EQ(meaningOf("measureStart,Show, it").begunStep, "Show");
  EXPECT_EQ(meaningOf("measureStart,").begunStep, "");
  EXPECT_EQ(meaningOf("measureStart").begunStep, std::nullopt);
  EXPECT_EQ(meaningOf("pause,10").begunStep, std::nullopt);
  EXPECT_TRUE(meaningOf("measureStop").endsStep);
  EXPECT_TRUE(meaningOf("measureStop,Show").endsStep);
  EXPECT_FALSE(meaningOf("measureStart,Show").endsStep);
}

}  // namespace
}  // namespace quobrak::host
