#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <new>

#include "platform/uiautomation/UIAutomationError.h"
#include "tests/faults/Expectation.h"
#include "tests/faults/ThreeScripts.h"

namespace quobrak::faults {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The primitives that the system uses in a part of a run, and what becomes of the run when one of them fails.
struct DriverCallClass {
  std::string primitive;
  Part part;
  Consequence afterError;
};

const std::vector<DriverCallClass> CLASSES{
    {"addInterruptionMonitor", Part::beforeScripts, Consequence::runIsRefused},

    {"launch", Part::inLine, Consequence::scriptFails},
    {"terminate", Part::inLine, Consequence::scriptFails},
    {"count", Part::inLine, Consequence::scriptFails},
    {"exists", Part::inLine, Consequence::scriptFails},
    {"label", Part::inLine, Consequence::scriptFails},
    {"frame", Part::inLine, Consequence::scriptFails},
    {"isHittable", Part::inLine, Consequence::scriptFails},
    {"waitForExistence", Part::inLine, Consequence::scriptFails},
    {"waitForPredicate", Part::inLine, Consequence::scriptFails},
    {"tap", Part::inLine, Consequence::scriptFails},
    {"press", Part::inLine, Consequence::scriptFails},
    {"pressThenDrag", Part::inLine, Consequence::scriptFails},
    {"typeText", Part::inLine, Consequence::scriptFails},
    {"swipe", Part::inLine, Consequence::scriptFails},
    {"pressButton", Part::inLine, Consequence::scriptFails},
    {"screenshot", Part::inLine, Consequence::scriptFails},

    {"screenshot", Part::atEndOfScript, Consequence::pictureOrDumpIsMissing},
    {"debugDescription", Part::atEndOfScript, Consequence::pictureOrDumpIsMissing},

    // All results are written by then.
    {"pressButton", Part::afterScripts, Consequence::resultsEnd},
    {"removeInterruptionMonitor", Part::afterScripts, Consequence::resultsEnd},
};

bool isOf(const DriverCallClass& kind, const Call& call) {
  return call.name == kind.primitive && call.part == kind.part;
}

class DriverFaults : public ::testing::Test {
 protected:
  /// Runs the suite with something that happens right before one call.
  SuiteRun runWith(const Call& call, const std::function<void()>& before) const {
    return SuiteRun::of(suite, {.driver = [&](std::size_t number, simulator::Phone&) {
                          if (number == call.number) {
                            before();
                          }
                        }});
  }

  void expectFailure(const Call& call, const std::function<void()>& raise, const Failure& failure) const {
    const auto kind = std::find_if(CLASSES.begin(), CLASSES.end(),
                                   [&call](const DriverCallClass& candidate) { return isOf(candidate, call); });
    ASSERT_NE(kind, CLASSES.end()) << call.name;
    const SuiteRun run = runWith(call, raise);
    SCOPED_TRACE(call.name + " " + call.target + ", primitive " + std::to_string(call.number));
    EXPECT_EQ(run.end, RAN_THROUGH);
    EXPECT_EQ(run.outcome.summary(), expectedAfter(suite, undisturbed, call, kind->afterError, failure));
    EXPECT_THAT(run.outcome.damages(), IsEmpty());
  }

  Suite suite = threeScripts(2);
  const Outcome undisturbed = SuiteRun::of(suite).outcome;
};

}  // namespace

TEST_F(DriverFaults, ThereAreCallsOfEachClass) {
  const std::vector<Call> calls = undisturbed.callsOf(Seam::driver);
  for (const DriverCallClass& kind : CLASSES) {
    EXPECT_TRUE(std::any_of(calls.begin(), calls.end(), [&kind](const Call& call) { return isOf(kind, call); }))
        << kind.primitive;
  }
}

TEST_F(DriverFaults, AnErrorOfTheDriver) {
  for (const Call& call : undisturbed.callsOf(Seam::driver)) {
    expectFailure(
        call, [] { throw UIAutomationError("The phone is gone."); },
        unknownFailure(call, "UIAutomationError", "The phone is gone."));
  }
}

TEST_F(DriverFaults, AnErrorOfAnotherKind) {
  for (const Call& call : undisturbed.callsOf(Seam::driver)) {
    expectFailure(
        call, [] { throw std::bad_alloc(); }, unknownFailure(call, "other", std::bad_alloc().what()));
  }
}

TEST_F(DriverFaults, AnErrorInASwipeToATextStopsTheProcessInTheSearchAndFailsTheScriptElsewhere) {
  suite.scripts = {{"swipes", "applicationStart,com.example.test\nswipeDownwardToText,Cheese,1"},
                   {"next", "applicationStart,com.example.test"}};
  std::vector<std::string> primitives;
  for (const Call& call : SuiteRun::of(suite).outcome.callsOf(Seam::driver)) {
    if (call.line != 2) {
      continue;
    }
    primitives.push_back(call.name);
    const SuiteRun run = runWith(call, [] { throw UIAutomationError("The phone is gone."); });
    EXPECT_THAT(run.outcome.damages(), IsEmpty());
    if (call.name == "count") {
      EXPECT_EQ(run.end.signal, SIGABRT);
      EXPECT_EQ(run.end.printed,
                "Fatal error: Unexpectedly raised an error: the search for Cheese before a swipe: The phone is gone. "
                "(line 2: swipeDownwardToText,Cheese,1)\n");
      EXPECT_THAT(run.outcome.summary().statuses.value(), ElementsAre("failed: earlier"));
    } else {
      EXPECT_EQ(run.end, RAN_THROUGH);
      EXPECT_THAT(run.outcome.summary().statuses.value(),
                  ElementsAre("failed: An unknown error occured while executing actions", "success"));
    }
  }
  EXPECT_THAT(primitives, ElementsAre("count", "isHittable", "pressThenDrag"));
}

}  // namespace quobrak::faults
