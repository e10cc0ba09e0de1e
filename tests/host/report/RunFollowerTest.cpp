#include "host/report/RunFollower.h"

#include <gtest/gtest.h>

#include "tests/host/report/SampleRun.h"

namespace quobrak::host {
namespace {

/// Shows what displays know.
class Follower final : public RunFollower {
 public:
  using RunFollower::endLine;
  using RunFollower::iterationTitle;
  using RunFollower::line;
  using RunFollower::resultLine;
};

constexpr std::int64_t TIME = 1700000000000;
const RunLine LINE{.number = 7, .text = "clickByText,Lamb"};

class RunFollowerTest : public ::testing::Test {
 protected:
  RunFollowerTest() {
    follower.runStarted(run);
    follower.iterationStarted(run, run.iterations.at(1));
    follower.scriptStarted(0, 1);
  }

  const RunRecord run = sampleRun();
  Follower follower;
};

TEST_F(RunFollowerTest, NamesTheIteration) {
  EXPECT_EQ(follower.iterationTitle(), "Iteration 1 of 3");
  follower.iterationStarted(run, run.iterations.at(0));
  EXPECT_EQ(follower.iterationTitle(), "Warm-up 1 of 1");
}

TEST_F(RunFollowerTest, KnowsTheLine) {
  EXPECT_EQ(follower.line(), std::nullopt);
  follower.lineStarted(LINE, TIME);
  EXPECT_EQ(follower.line(), LINE);
  follower.lineFinished(LINE, 1, "");
  EXPECT_EQ(follower.line(), std::nullopt);
}

TEST_F(RunFollowerTest, KeepsTheLineAtWhichAScriptEnded) {
  follower.lineStarted(LINE, TIME);
  follower.lineFinished(LINE, 1, "not found");
  follower.scriptFinished(0, ScriptOutcome::failed, "not found");
  EXPECT_EQ(follower.line(), LINE);
  follower.scriptStarted(1, 2);
  EXPECT_EQ(follower.line(), std::nullopt);
}

TEST_F(RunFollowerTest, ForgetsTheLineWithTheIteration) {
  follower.lineStarted(LINE, TIME);
  follower.iterationStarted(run, run.iterations.at(2));
  EXPECT_EQ(follower.line(), std::nullopt);
}

TEST_F(RunFollowerTest, TellsOfResults) {
  EXPECT_EQ(follower.resultLine(1, ScriptOutcome::passed, ""), "Iteration 1 of 3: Shop/login passed");
  EXPECT_EQ(follower.resultLine(1, ScriptOutcome::notRun, ""), "Iteration 1 of 3: Shop/login not run");
  EXPECT_EQ(follower.resultLine(1, ScriptOutcome::failed, "no picture"),
            "Iteration 1 of 3: Shop/login failed: no picture");
  EXPECT_EQ(follower.resultLine(1, ScriptOutcome::failed, ""), "Iteration 1 of 3: Shop/login failed");
  follower.lineStarted(LINE, TIME);
  EXPECT_EQ(follower.resultLine(0, ScriptOutcome::aborted, ""),
            "Iteration 1 of 3: Shop/order aborted: line 7: clickByText,Lamb");
  follower.lineFinished(LINE, 1, "not\nfound");
  EXPECT_EQ(follower.resultLine(0, ScriptOutcome::failed, "not\nfound"),
            "Iteration 1 of 3: Shop/order failed: line 7: clickByText,Lamb: not␊found");
  EXPECT_EQ(follower.resultLine(0, ScriptOutcome::passed, ""), "Iteration 1 of 3: Shop/order passed");
}

TEST_F(RunFollowerTest, TellsHowAnIterationEnded) {
  EXPECT_EQ(follower.endLine(run.iterations.at(1)), "Iteration 1 of 3 finished after 4.5 s, 2 passed, 1 failed");
  IterationRecord iteration;
  iteration.outcome = IterationOutcome::misconfigured;
  iteration.message = "No\x1b phone.";
  EXPECT_EQ(follower.endLine(iteration), "Iteration 1 of 3 misconfigured after 0 ms: No␛ phone.");
}

TEST_F(RunFollowerTest, CountsWhatBecameOfScripts) {
  EXPECT_EQ(outcomeCountsOf(run.iterations.at(3)), (OutcomeCounts{.passed = 1, .aborted = 1, .notRun = 1}));
  EXPECT_EQ(inWords(OutcomeCounts{.passed = 4, .failed = 3, .aborted = 2, .notRun = 1}),
            "4 passed, 3 failed, 2 aborted, 1 not run");
  EXPECT_EQ(inWords(OutcomeCounts{.failed = 1}), "1 failed");
  EXPECT_EQ(inWords(OutcomeCounts{}), "");
}

}  // namespace
}  // namespace quobrak::host
