#include "host/report/LiveProgress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include "platform/foundation/VirtualClock.h"
#include "tests/host/report/SampleRun.h"
#include "tests/host/report/TestScreen.h"

namespace quobrak::host {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::int64_t TIME = 1700000000000;

/// A run of the sample's scripts on real time, shown on a terminal of some width.
class LiveProgressTest : public ::testing::Test {
 protected:
  LiveProgressTest() {
    run.clock = "system";
    planned = std::move(run.iterations);
    run.iterations.clear();
    showOn({.isInteractive = true, .width = 80});
  }

  void showOn(const Terminal& terminal) {
    width = terminal.width;
    progress.reset();
    out.str("");
    progress.emplace(terminal, out, clock);
    progress->runStarted(run);
  }

  void startIteration(std::size_t index) {
    run.iterations.push_back(planned.at(index));
    progress->iterationStarted(run, run.iterations.back());
  }
  void finishIteration() { progress->iterationFinished(run, run.iterations.back()); }

  void startLine(std::size_t number, const std::string& text) {
    progress->lineStarted({.number = number, .text = text}, TIME);
  }
  void finishLine(const std::string& text, const std::string& error = "") {
    progress->lineFinished({.number = 1, .text = text}, 1, error);
  }
  void doLine(const std::string& text) {
    startLine(1, text);
    finishLine(text);
  }

  void wait(std::chrono::milliseconds duration) {
    clock.usleep(static_cast<std::uint32_t>(std::chrono::microseconds(duration).count()));
    progress->timePassed();
  }

  /// What the terminal shows, once time has passed.
  std::vector<std::string> rowsAfter(std::chrono::milliseconds duration) {
    wait(duration);
    return rows();
  }
  std::vector<std::string> rows() const {
    TestScreen screen(width);
    screen.write(out.str());
    return screen.rows();
  }

  RunRecord run = sampleRun();
  std::vector<IterationRecord> planned;
  std::ostringstream out;
  VirtualClock clock{1000s};
  std::optional<LiveProgress> progress;
  std::size_t width = 0;
};

TEST_F(LiveProgressTest, ShowsNothingBeforeAnIterationStarts) {
  EXPECT_THAT(rowsAfter(1s), IsEmpty());
}

TEST_F(LiveProgressTest, ShowsWhereTheRunIs) {
  startIteration(0);
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Warm-up 1 of 1"));
  progress->scriptStarted(1, 2);
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Warm-up 1 of 1, script 2 of 3: Shop/login"));
  startLine(3, "clickByText,Browse products");
  EXPECT_THAT(rowsAfter(1s),
              ElementsAre("Warm-up 1 of 1, script 2 of 3: Shop/login", "line 3 of 6: clickByText,Browse products"));
  finishLine("clickByText,Browse products");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Warm-up 1 of 1, script 2 of 3: Shop/login"));
  progress->scriptFinished(1, ScriptOutcome::passed, "");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Warm-up 1 of 1, script 2 of 3: Shop/login", "1 passed"));
}

TEST_F(LiveProgressTest, CountsNoLinesWhereThereAreNone) {
  run.kind = RunKind::command;
  run.scripts = {{.suite = "", .name = "", .source = {}, .lineCount = 0}};
  startIteration(1);
  progress->scriptStarted(0, 1);
  startLine(1, "pressHome");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, script 1 of 3: command", "line 1: pressHome"));
}

TEST_F(LiveProgressTest, CountsALongPauseDown) {
  startIteration(1);
  progress->scriptStarted(0, 1);
  startLine(2, "pause,90000");
  EXPECT_THAT(rowsAfter(500ms), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "line 2 of 20: pause,90000",
                                            "pause: 1 min 30 s left"));
  EXPECT_THAT(rowsAfter(80s), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "line 2 of 20: pause,90000",
                                          "pause: 10 s left"));
  EXPECT_THAT(rowsAfter(20s), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "line 2 of 20: pause,90000",
                                          "pause: 0 s left"));
  finishLine("pause,90000");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order"));
}

TEST_F(LiveProgressTest, LeavesAShortPauseUncounted) {
  startIteration(1);
  progress->scriptStarted(0, 1);
  startLine(2, "pause,999");
  EXPECT_THAT(rowsAfter(500ms), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "line 2 of 20: pause,999"));
}

TEST_F(LiveProgressTest, ForgetsAPauseThatAnIterationEndedIn) {
  startIteration(2);
  progress->scriptStarted(0, 1);
  startLine(2, "pause,90000");
  wait(1s);
  finishIteration();
  startIteration(1);
  progress->scriptStarted(0, 1);
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "3 passed, about 2 s left"));
}

TEST_F(LiveProgressTest, CountsNothingOfVirtualTime) {
  run.clock = "virtual";
  startIteration(1);
  progress->scriptStarted(0, 1);
  doLine("measureStart,Show");
  startLine(2, "pause,90000");
  EXPECT_THAT(rowsAfter(1s),
              ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "line 2 of 20: pause,90000", "step Show"));
}

TEST_F(LiveProgressTest, ShowsTheStepThatIsOpen) {
  startIteration(1);
  progress->scriptStarted(0, 1);
  doLine("measureStart,Show");
  EXPECT_THAT(rowsAfter(1500ms), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "step Show: 1 s"));
  startLine(3, "pause,5000");
  EXPECT_THAT(rowsAfter(2s), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "line 3 of 20: pause,5000",
                                         "pause: 3 s left, step Show: 3 s"));
  finishLine("pause,5000");
  doLine("measureStart,Pay");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "step Pay: 1 s"));
  doLine("measureStop");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order"));
}

TEST_F(LiveProgressTest, KeepsAStepOpenIntoTheNextScriptAndNoFurther) {
  startIteration(1);
  progress->scriptStarted(0, 1);
  doLine("measureStart,Show");
  progress->scriptFinished(0, ScriptOutcome::passed, "");
  progress->scriptStarted(1, 2);
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, script 2 of 3: Shop/login", "step Show: 1 s", "1 passed"));
  startIteration(2);
  progress->scriptStarted(0, 1);
  EXPECT_THAT(rowsAfter(1s).at(0), "Iteration 2 of 3, script 1 of 3: Shop/order");
  EXPECT_THAT(rows().at(1), "1 passed");
}

TEST_F(LiveProgressTest, OpensNoStepWhereItsLineFails) {
  startIteration(1);
  progress->scriptStarted(0, 1);
  startLine(1, "measureStart,Show");
  finishLine("measureStart,Show", "no picture");
  EXPECT_THAT(rowsAfter(1s),
              ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order", "line 1 of 20: measureStart,Show"));
}

TEST_F(LiveProgressTest, ShowsTheLastFailure) {
  startIteration(1);
  progress->scriptStarted(1, 2);
  startLine(3, "clickByText,Lamb");
  finishLine("clickByText,Lamb", "not found");
  progress->scriptFinished(1, ScriptOutcome::failed, "not found");
  EXPECT_THAT(rowsAfter(1s),
              ElementsAre("Iteration 1 of 3, script 2 of 3: Shop/login", "line 3 of 6: clickByText,Lamb", "1 failed",
                          "Iteration 1 of 3: Shop/login failed: line 3: clickByText,Lamb: not found"));
}

TEST_F(LiveProgressTest, EstimatesTheTimeLeftFromTheIterationsDone) {
  startIteration(0);
  wait(60s);
  finishIteration();
  startIteration(1);
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3", "3 passed, about 2 min 59 s left"));
  wait(59s);
  finishIteration();
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3", "5 passed, 1 failed, about 2 min 00 s left"));
}

TEST_F(LiveProgressTest, ShowsNoScriptBetweenIterationsAndCountsNoneTwice) {
  startIteration(2);
  progress->scriptStarted(0, 3);
  doLine("measureStart,Show");
  progress->scriptFinished(0, ScriptOutcome::passed, "");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 2 of 3, script 3 of 3: Shop/order", "step Show: 1 s", "1 passed"));
  finishIteration();
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 2 of 3", "3 passed, about 3 s left"));
}

TEST_F(LiveProgressTest, CountsARestDown) {
  startIteration(1);
  wait(1s);
  finishIteration();
  progress->restStarted(30000);
  EXPECT_THAT(rowsAfter(10s),
              ElementsAre("Iteration 1 of 3 is over. Rest: 20 s left", "2 passed, 1 failed, about 1 min 23 s left"));
  startIteration(2);
  EXPECT_THAT(rowsAfter(1s).at(0), "Iteration 2 of 3");
}

TEST_F(LiveProgressTest, PrintsNoticesAbove) {
  progress->notice("The\x1b[2J results of yesterday are kept.");
  startIteration(1);
  EXPECT_THAT(rowsAfter(1s), ElementsAre("The␛[2J results of yesterday are kept.", "Iteration 1 of 3"));
  progress->notice("Something else.");
  EXPECT_THAT(rows(), ElementsAre("The␛[2J results of yesterday are kept.", "Something else.", "Iteration 1 of 3"));
}

TEST_F(LiveProgressTest, PrintsAboveWhyAnIterationDidNotFinish) {
  startIteration(3);
  wait(1s);
  finishIteration();
  progress->runFinished(run);
  EXPECT_THAT(rowsAfter(1s),
              ElementsAre("Iteration 3 of 3 aborted after 4.5 s, 1 passed, 1 aborted, 1 not run: The test p",
                          "rocess stopped itself at line 5 of Shop/login: clickByText"));
}

TEST_F(LiveProgressTest, LeavesACleanScreen) {
  startIteration(1);
  progress->scriptStarted(0, 1);
  startLine(1, "pause,5000");
  wait(1s);
  progress->runFinished(run);
  EXPECT_THAT(rowsAfter(1s), IsEmpty());
}

TEST_F(LiveProgressTest, LeavesACleanScreenAlsoWhereTheRunIsNotFinished) {
  startIteration(1);
  wait(1s);
  progress.reset();
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(LiveProgressTest, DrawsTenTimesASecondAtMost) {
  run.clock = "virtual";
  startIteration(1);
  wait(1s);
  for (std::size_t script = 0; script < 3; ++script) {
    progress->scriptStarted(script, script + 1);
    for (std::size_t number = 1; number <= 1000; ++number) {
      startLine(number, "pressHome");
      finishLine("pressHome");
    }
    wait(33ms);
    EXPECT_THAT(rows(), ElementsAre("Iteration 1 of 3"));
  }
  EXPECT_THAT(rowsAfter(1ms), ElementsAre("Iteration 1 of 3, script 3 of 3: 設定/settings"));
  wait(99ms);
  progress->scriptStarted(0, 1);
  EXPECT_THAT(rowsAfter(0ms), ElementsAre("Iteration 1 of 3, script 3 of 3: 設定/settings"));
  EXPECT_THAT(rowsAfter(1ms), ElementsAre("Iteration 1 of 3, script 1 of 3: Shop/order"));
}

TEST_F(LiveProgressTest, FitsANarrowTerminal) {
  showOn({.isInteractive = true, .width = 20});
  startIteration(1);
  progress->scriptStarted(2, 3);
  startLine(1, "clickByText,設定設定");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, …", "line 1 of 1: click…"));
  startLine(1, "click\t設定設定");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, …", "line 1 of 1: click…"));
  startLine(1, "a,\x1b設定定");
  EXPECT_THAT(rowsAfter(1s), ElementsAre("Iteration 1 of 3, …", "line 1 of 1: a,␛設…"));
}

TEST_F(LiveProgressTest, FitsTheNarrowestTerminal) {
  for (const std::size_t columns : {0U, 1U, 2U, 3U}) {
    showOn({.isInteractive = true, .width = columns});
    run.iterations.clear();
    startIteration(1);
    progress->scriptStarted(2, 3);
    startLine(1, "clickByText,設定");
    wait(1s);
    const std::vector<std::string> expected =
        std::vector<std::vector<std::string>>{{}, {}, {"…", "…"}, {"I…", "l…"}}.at(columns);
    width = std::max<std::size_t>(columns, 1);
    EXPECT_EQ(rows(), expected) << columns;
  }
}

TEST_F(LiveProgressTest, HasColours) {
  showOn({.isInteractive = true, .hasColour = true, .width = 80});
  startIteration(1);
  progress->scriptStarted(0, 1);
  startLine(1, "clickByText,Lamb");
  progress->scriptFinished(0, ScriptOutcome::failed, "no");
  wait(1s);
  EXPECT_EQ(out.str(),
            "\x1b[K\x1b[1mIteration 1 of 3\x1b[0m, script 1 of 3: Shop/order\n"
            "\x1b[K\x1b[2mline 1 of 20: \x1b[0m\x1b[34mclickByText\x1b[0m,Lamb\n"
            "\x1b[K\x1b[31m1 failed\x1b[0m\n"
            "\x1b[K\x1b[31mIteration 1 of 3: Shop/order failed: line 1: clickByText,Lamb: no\x1b[0m\n"
            "\x1b[J");
}

}  // namespace
}  // namespace quobrak::host
