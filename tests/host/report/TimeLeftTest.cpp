#include "host/report/TimeLeft.h"

#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

using namespace std::chrono_literals;

constexpr Clock::TimePoint START{1000s};

TEST(TimeLeft, IsNotKnownBeforeAnIterationIsDone) {
  TimeLeft left(3);
  EXPECT_EQ(left.at(START), std::nullopt);
  left.iterationStarted(START);
  EXPECT_EQ(left.at(START + 10s), std::nullopt);
}

TEST(TimeLeft, IsWhatTheIterationsDoneTookOnAverage) {
  TimeLeft left(4);
  left.iterationStarted(START);
  left.iterationFinished(START + 10s);
  EXPECT_EQ(left.at(START + 10s), 30s);
  left.iterationStarted(START + 10s);
  EXPECT_EQ(left.at(START + 14s), 26s);
  left.iterationFinished(START + 30s);
  EXPECT_EQ(left.at(START + 30s), 30s);
}

TEST(TimeLeft, StopsCountingForAnIterationThatTakesLonger) {
  TimeLeft left(3);
  left.iterationStarted(START);
  left.iterationFinished(START + 10s);
  left.iterationStarted(START + 10s);
  EXPECT_EQ(left.at(START + 20s), 10s);
  EXPECT_EQ(left.at(START + 90s), 10s);
}

TEST(TimeLeft, HasRestsBetweenTheIterationsToCome) {
  TimeLeft left(3);
  left.iterationStarted(START);
  left.iterationFinished(START + 10s);
  left.restStarted(START + 10s, 5s);
  EXPECT_EQ(left.at(START + 12s), 3s + 10s + 5s + 10s);
  EXPECT_EQ(left.at(START + 16s), 10s + 5s + 10s);
  // The rest was cut short.
  left.iterationStarted(START + 13s);
  EXPECT_EQ(left.at(START + 13s), 10s + 5s + 10s);
}

TEST(TimeLeft, IsNoneWhenAllAreDone) {
  TimeLeft left(1);
  left.iterationStarted(START);
  left.iterationFinished(START + 10s);
  EXPECT_EQ(left.at(START + 10s), std::nullopt);
  EXPECT_EQ(TimeLeft().at(START), std::nullopt);
}

}  // namespace
}  // namespace quobrak::host
