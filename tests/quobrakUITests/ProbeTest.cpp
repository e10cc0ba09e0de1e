#include "quobrakUITests/Probe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/FakeClock.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::IsEmpty;

constexpr std::int64_t START = 1700000000000;

MeasureTick tickAt(std::int64_t time) {
  return {.time = time, .values = {{"AH_PL", 0}}};
}

void sleepMilliseconds(std::uint32_t milliseconds) {
  Clock::shared().usleep(milliseconds * 1000);
}

TEST(Probe, StartOpensAStep) {
  testing::TestPlatform platform;
  Probe::measureStart("a");
  EXPECT_EQ(TestContext::shared().getCurrentTestResult(),
            (TestResultV2{.test = "a", .testTime = 0, .measures = {{tickAt(START)}, {}}}));
  EXPECT_THAT(TestContext::shared().getTestResults(), IsEmpty());
}

TEST(Probe, StopRecordsTheStepWithItsDuration) {
  testing::TestPlatform platform;
  Probe::measureStart("a");
  sleepMilliseconds(4250);
  Probe::measureStop();
  EXPECT_THAT(TestContext::shared().getTestResults(),
              ElementsAre(TestResultV2{
                  .test = "a", .testTime = 4250, .measures = {{tickAt(START), tickAt(START + 4250)}, {}}}));
}

TEST(Probe, StopLeavesTheStepOpenAsItWas) {
  testing::TestPlatform platform;
  Probe::measureStart("a");
  const TestResultV2 open = TestContext::shared().getCurrentTestResult();
  sleepMilliseconds(10);
  Probe::measureStop();
  EXPECT_EQ(TestContext::shared().getCurrentTestResult(), open);
}

TEST(Probe, SecondStopRecordsTheStepAgain) {
  testing::TestPlatform platform;
  Probe::measureStart("a");
  sleepMilliseconds(10);
  Probe::measureStop();
  sleepMilliseconds(5);
  Probe::measureStop();
  EXPECT_THAT(
      TestContext::shared().getTestResults(),
      ElementsAre(TestResultV2{.test = "a", .testTime = 10, .measures = {{tickAt(START), tickAt(START + 10)}, {}}},
                  TestResultV2{.test = "a", .testTime = 15, .measures = {{tickAt(START), tickAt(START + 15)}, {}}}));
}

TEST(Probe, SecondStartDropsTheFirstStep) {
  testing::TestPlatform platform;
  Probe::measureStart("a");
  sleepMilliseconds(10);
  Probe::measureStart("b");
  sleepMilliseconds(1);
  Probe::measureStop();
  EXPECT_THAT(TestContext::shared().getTestResults(),
              ElementsAre(TestResultV2{
                  .test = "b", .testTime = 1, .measures = {{tickAt(START + 10), tickAt(START + 11)}, {}}}));
}

TEST(Probe, NameMayBeEmpty) {
  testing::TestPlatform platform;
  Probe::measureStart("");
  Probe::measureStop();
  ASSERT_EQ(TestContext::shared().getTestResults().size(), 1U);
  EXPECT_EQ(TestContext::shared().getTestResults()[0].test, "");
  EXPECT_EQ(TestContext::shared().getTestResults()[0].testTime, 0);
}

TEST(Probe, ClockThatWentBackGivesANegativeDuration) {
  Clock::install(std::make_unique<testing::FakeClock>(2.0));
  Probe::measureStart("a");
  Clock::install(std::make_unique<testing::FakeClock>(1.5));
  Probe::measureStop();
  ASSERT_EQ(TestContext::shared().getTestResults().size(), 1U);
  EXPECT_EQ(TestContext::shared().getTestResults()[0].testTime, -500);
}

TEST(Probe, StopBeforeAnyStartIsFatal) {
  testing::TestPlatform platform;
  EXPECT_DEATH(Probe::measureStop(),
               Eq("Fatal error: Index out of range: measureStop without a measureStart before it\n"));
}

TEST(Probe, DurationThatOverflowsIsFatal) {
  Clock::install(std::make_unique<testing::FakeClock>(-9e15));
  Probe::measureStart("a");
  Clock::install(std::make_unique<testing::FakeClock>(9e15));
  EXPECT_DEATH(Probe::measureStop(), Eq("Fatal error: The duration of the step overflows\n"));
}

TEST(Probe, ClockThatIsNotFiniteIsFatal) {
  Clock::install(std::make_unique<testing::FakeClock>(std::numeric_limits<double>::quiet_NaN()));
  EXPECT_DEATH(Probe::measureStart("a"),
               Eq("Fatal error: The clock's time in milliseconds does not fit a signed 64-bit integer\n"));
}

}  // namespace
}  // namespace quobrak
