#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "platform/foundation/Clock.h"
#include "tests/faults/ThreeScripts.h"

namespace quobrak::faults {

namespace {

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

constexpr std::chrono::milliseconds DELAY(137);

void delay() {
  Clock::shared().usleep(static_cast<std::uint32_t>(std::chrono::microseconds(DELAY).count()));
}

Interventions delayAt(const Call& call) {
  if (call.seam == Seam::driver) {
    return {.driver = [&call](std::size_t number, simulator::Phone&) {
      if (number == call.number) {
        delay();
      }
    }};
  }
  return {.files = [&call](std::size_t number, const std::function<void()>& carryOut) {
    if (number == call.number) {
      delay();
    }
    carryOut();
  }};
}

/// How many calls of the run were made before the name of the measure file was chosen.
std::size_t callsBeforeWriting(const Outcome& undisturbed, const Measure& measure) {
  const auto write = std::find_if(undisturbed.calls().begin(), undisturbed.calls().end(), [&measure](const Call& call) {
    return call.name == "write" &&
           call.target == "measures/fernwick--" + measure.name + "-" + std::to_string(measure.written) + ".json";
  });
  // The folder of the file is asked for and made in between.
  return write->position - 2;
}

/// The measures of a run in which the call took longer.
std::vector<Measure> delayedMeasures(const Outcome& undisturbed, const Call& call) {
  std::vector<Measure> measures = undisturbed.measures();
  for (std::size_t i = 0; i < measures.size(); ++i) {
    const Step& step = undisturbed.steps().at(i);
    const std::size_t callsBeforeWrite = callsBeforeWriting(undisturbed, measures[i]);
    const auto shift = [&call](std::size_t callsBefore) { return call.position < callsBefore ? DELAY.count() : 0; };
    measures[i].start += shift(step.callsBeforeStart);
    measures[i].stop += shift(step.callsBeforeStop);
    measures[i].duration += shift(step.callsBeforeStop) - shift(step.callsBeforeStart);
    measures[i].written += shift(callsBeforeWrite);
  }
  return measures;
}

}  // namespace

TEST(SlowCalls, StepsTakeAsLongAsTheClockSaysToTheMillisecond) {
  const Suite suite = threeScripts(1);
  const Outcome undisturbed = SuiteRun::of(suite).outcome;
  ASSERT_EQ(undisturbed.measures().size(), undisturbed.steps().size());
  std::size_t longerSteps = 0;
  for (const Call& call : undisturbed.calls()) {
    const SuiteRun run = SuiteRun::of(suite, delayAt(call));
    SCOPED_TRACE(call.name + " " + call.target + ", call " + std::to_string(call.position));
    EXPECT_EQ(run.end, RAN_THROUGH);
    EXPECT_THAT(run.outcome.measures(), ElementsAreArray(delayedMeasures(undisturbed, call)));
    longerSteps += run.outcome.summary().steps == undisturbed.summary().steps ? 0U : 1U;
    Summary summary = run.outcome.summary();
    summary.steps = undisturbed.summary().steps;
    EXPECT_EQ(summary, undisturbed.summary());
    EXPECT_THAT(run.outcome.damages(), IsEmpty());
  }
  EXPECT_GT(longerSteps, 0U) << "no call was within a step";
}

}  // namespace quobrak::faults
