#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <functional>
#include <new>
#include <stdexcept>

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
  Phase phase;
  Consequence afterError;
};

const std::vector<DriverCallClass> CLASSES{
    {"addInterruptionMonitor", Phase::beforeScripts, Consequence::runIsRefused},

    {"launch", Phase::inLine, Consequence::scriptFails},
    {"terminate", Phase::inLine, Consequence::scriptFails},
    {"count", Phase::inLine, Consequence::scriptFails},
    {"exists", Phase::inLine, Consequence::scriptFails},
    {"label", Phase::inLine, Consequence::scriptFails},
    {"frame", Phase::inLine, Consequence::scriptFails},
    {"isHittable", Phase::inLine, Consequence::scriptFails},
    {"waitForExistence", Phase::inLine, Consequence::scriptFails},
    {"waitForPredicate", Phase::inLine, Consequence::scriptFails},
    {"tap", Phase::inLine, Consequence::scriptFails},
    {"press", Phase::inLine, Consequence::scriptFails},
    {"pressThenDrag", Phase::inLine, Consequence::scriptFails},
    {"typeText", Phase::inLine, Consequence::scriptFails},
    {"swipe", Phase::inLine, Consequence::scriptFails},
    {"pressButton", Phase::inLine, Consequence::scriptFails},
    {"screenshot", Phase::inLine, Consequence::scriptFails},

    {"screenshot", Phase::atEndOfScript, Consequence::pictureOrDumpIsMissing},
    {"debugDescription", Phase::atEndOfScript, Consequence::pictureOrDumpIsMissing},

    // All results are written by then.
    {"pressButton", Phase::afterScripts, Consequence::resultsEnd},
    {"removeInterruptionMonitor", Phase::afterScripts, Consequence::resultsEnd},
};

bool isOf(const DriverCallClass& kind, const Call& call) {
  return call.name == kind.primitive && call.phase == kind.phase;
}

const DriverCallClass& classOf(const Call& call) {
  const auto found =
      std::find_if(CLASSES.begin(), CLASSES.end(), [&call](const DriverCallClass& kind) { return isOf(kind, call); });
  if (found == CLASSES.end()) {
    throw std::logic_error("a call of no class: " + call.name + " " + call.target);
  }
  return *found;
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
    const SuiteRun run = runWith(call, raise);
    SCOPED_TRACE(call.name + " " + call.target + ", primitive " + std::to_string(call.number));
    EXPECT_EQ(run.end, RAN_THROUGH);
    EXPECT_EQ(run.outcome.summary(), expectedAfter(suite, undisturbed, call, classOf(call).afterError, failure));
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
