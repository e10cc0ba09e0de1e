#include "host/run/IterationProgress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/run/RecordedListener.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AnIterationsProgress : public ::testing::Test {
 protected:
  AnIterationsProgress() {
    // The second script of the run goes first.
    iteration.scripts.emplace_back().script = 1;
    iteration.scripts.emplace_back().script = 0;
  }

  void take(std::string_view json) { progress.take(JSONDecoder::decode(json)); }

  void startScript(int number) {
    take(R"({"event":"scriptStarted","iterationPath":"p","number":)" + std::to_string(number) +
         R"(,"time":1000,"total":2})");
  }

  IterationRecord iteration;
  RecordedListener listener;
  IterationProgress progress{iteration, listener};
};

TEST_F(AnIterationsProgress, IsToldAsItIsMade) {
  startScript(1);
  take(R"({"event":"lineStarted","number":3,"text":"pause,5","time":1001})");
  take(R"({"event":"driver","operation":"tap","duration":0.5})");
  take(R"({"event":"lineFinished","number":3,"text":"pause,5","duration":5.25,"time":1006})");
  take(R"({"event":"step","name":"Step","start":1001,"stop":1006,"duration":5})");
  take(R"({"event":"scriptFinished","iterationPath":"p","status":"success","stackTrace":"","time":1010})");
  EXPECT_THAT(listener.heard, ElementsAre("script 1 at 1", "line 3 pause,5 from 1001", "line 3 took 5", "step Step",
                                          "script 1 passed"));
  const ScriptRecord& script = iteration.scripts.front();
  EXPECT_EQ(script.outcome, ScriptOutcome::passed);
  EXPECT_EQ(script.started, 1000);
  EXPECT_EQ(script.duration, 10);
  ASSERT_EQ(progress.steps().size(), 1U);
  EXPECT_EQ(progress.steps().front().position, 0U);
  EXPECT_EQ(progress.steps().front().step, (MeasuredStep{.name = "Step", .start = 1001, .stop = 1006, .duration = 5}));
  EXPECT_EQ(iteration.scripts.back().outcome, ScriptOutcome::notRun);
}

TEST_F(AnIterationsProgress, KnowsWhatRuns) {
  EXPECT_EQ(progress.runningScript(), std::nullopt);
  startScript(2);
  EXPECT_EQ(progress.runningScript(), 1U);
  EXPECT_EQ(progress.runningLine(), std::nullopt);
  take(R"({"event":"lineStarted","number":2,"text":"pause,5","time":1001})");
  EXPECT_EQ(progress.runningLine(), (RunLine{.number = 2, .text = "pause,5"}));
  take(R"({"event":"lineFinished","number":2,"text":"pause,5","duration":5,"time":1006})");
  EXPECT_EQ(progress.runningLine(), std::nullopt);
  take(R"({"event":"scriptFinished","status":"success","stackTrace":"","time":1010})");
  EXPECT_EQ(progress.runningScript(), std::nullopt);
}

TEST_F(AnIterationsProgress, TakesNoLineFromOneScriptToTheNext) {
  startScript(1);
  take(R"({"event":"lineStarted","number":2,"text":"pause,5","time":1001})");
  take(R"({"event":"scriptFinished","status":"success","stackTrace":"","time":1010})");
  startScript(2);
  EXPECT_EQ(progress.runningLine(), std::nullopt);
}

TEST_F(AnIterationsProgress, KeepsTheLineThatFailedAndWhy) {
  startScript(1);
  take(R"({"event":"lineStarted","number":2,"text":"clickByText,A","time":1001})");
  take(R"({"event":"lineFinished","number":2,"text":"clickByText,A","duration":5,"time":1006,)"
       R"("error":{"kind":"UIAutomationError","message":"the phone is gone"}})");
  take(R"({"event":"scriptError","error":{"kind":"UIAutomationError","message":"as the script tells it"}})");
  take(R"({"event":"scriptFinished","status":"failed","stackTrace":"An unknown error","time":1010})");
  const ScriptRecord& script = iteration.scripts.front();
  EXPECT_EQ(script.outcome, ScriptOutcome::failed);
  EXPECT_EQ(script.line, (RunLine{.number = 2, .text = "clickByText,A"}));
  EXPECT_EQ(script.cause, "the phone is gone");
  EXPECT_EQ(script.stackTrace, "An unknown error");
  EXPECT_THAT(listener.heard,
              ElementsAre("script 1 at 1", "line 2 clickByText,A from 1001", "line 2 took 5: the phone is gone",
                          "script 1 did not pass: the phone is gone"));
}

TEST_F(AnIterationsProgress, KeepsWhyAScriptFailedWithoutALine) {
  startScript(1);
  take(R"({"event":"scriptError","error":{"kind":"envVariableError","message":"no VOUCHER"}})");
  take(R"({"event":"scriptFinished","status":"failed","stackTrace":"no VOUCHER","time":1010})");
  EXPECT_EQ(iteration.scripts.front().cause, "no VOUCHER");
  EXPECT_EQ(iteration.scripts.front().line, std::nullopt);
}

TEST_F(AnIterationsProgress, IsNotDisturbedByWhatItDoesNotKnow) {
  for (const char* event :
       {R"({"event":"lineStarted","number":1,"text":"pause,5","time":1})",
        R"({"event":"scriptStarted","number":0,"time":1})", R"({"event":"scriptStarted","number":3,"time":1})",
        R"({"event":"scriptStarted"})", R"({"event":"news"})", R"({"kind":"step"})", "[]", "7"}) {
    take(event);
  }
  EXPECT_THAT(listener.heard, IsEmpty());
  EXPECT_EQ(progress.runningScript(), std::nullopt);
  startScript(1);
  for (const char* event : {R"({"event":"lineStarted","number":"one"})", R"({"event":"lineFinished","number":1})",
                            R"({"event":"step","name":"Step"})", R"({"event":"scriptFinished","status":"success"})"}) {
    take(event);
  }
  EXPECT_THAT(listener.heard, ElementsAre("script 1 at 1"));
  EXPECT_EQ(progress.runningScript(), 0U);
}

}  // namespace
}  // namespace quobrak::host
