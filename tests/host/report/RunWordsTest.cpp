#include "host/report/RunWords.h"

#include <gtest/gtest.h>

#include "tests/host/report/SampleRun.h"

namespace quobrak::host {
namespace {

using namespace std::chrono_literals;

TEST(RunWords, NameWhatBecameOfAScript) {
  EXPECT_EQ(nameOf(ScriptOutcome::passed), "passed");
  EXPECT_EQ(nameOf(ScriptOutcome::failed), "failed");
  EXPECT_EQ(nameOf(ScriptOutcome::aborted), "aborted");
  EXPECT_EQ(nameOf(ScriptOutcome::notRun), "notRun");
  EXPECT_EQ(inWords(ScriptOutcome::aborted), "aborted");
  EXPECT_EQ(inWords(ScriptOutcome::notRun), "not run");
}

TEST(RunWords, NameHowAnIterationEnded) {
  EXPECT_EQ(nameOf(IterationOutcome::finished), "finished");
  EXPECT_EQ(nameOf(IterationOutcome::aborted), "aborted");
  EXPECT_EQ(nameOf(IterationOutcome::failed), "failed");
  EXPECT_EQ(nameOf(IterationOutcome::misconfigured), "misconfigured");
  EXPECT_EQ(nameOf(IterationOutcome::interrupted), "interrupted");
}

TEST(RunWords, NameWhatIsRun) {
  EXPECT_EQ(nameOf(RunKind::scripts), "scripts");
  EXPECT_EQ(nameOf(RunKind::command), "command");
  EXPECT_EQ(nameOf(RunKind::reference), "reference");
}

TEST(RunWords, TellScriptsApart) {
  struct Case {
    RunKind kind;
    std::string suite;
    std::string name;
    std::string title;
  };
  for (const auto& [kind, suite, name, title] : {
           Case{RunKind::scripts, "Shop", "order", "Shop/order"},
           Case{RunKind::scripts, "", "order", "order"},
           Case{RunKind::scripts, "", "", "script"},
           Case{RunKind::command, "", "", "command"},
           Case{RunKind::reference, "", "", "reference script"},
           Case{RunKind::scripts, "A\x1b[2J", "b\n", "A␛[2J/b␊"},
       }) {
    RunRecord run;
    run.kind = kind;
    run.scripts = {{.suite = suite, .name = name, .source = {}, .lineCount = 0}};
    EXPECT_EQ(titleOf(run, 0), title);
  }
}

TEST(RunWords, TellIterationsApart) {
  const RunRecord run = sampleRun();
  EXPECT_EQ(titleOf(run.iterations.at(0)), "warm-up 1");
  EXPECT_EQ(titleOf(run.iterations.at(3)), "iteration 3");
}

TEST(RunWords, TellOfAFailureWhatIsKnown) {
  const RunLine line{.number = 7, .text = "clickByText,\tLamb"};
  EXPECT_EQ(failureIn(line, "not found"), "line 7: clickByText,␉Lamb: not found");
  EXPECT_EQ(failureIn(line, ""), "line 7: clickByText,␉Lamb");
  EXPECT_EQ(failureIn(std::nullopt, "no\x1bpicture"), "no␛picture");
  EXPECT_EQ(failureIn(std::nullopt, ""), "");
}

TEST(RunWords, TakeTheStatusForACauseThatIsNotKnown) {
  ScriptRecord script;
  script.stackTrace = "An unknown error";
  EXPECT_EQ(causeOf(script), "An unknown error");
  script.cause = "The pattern cannot be read";
  EXPECT_EQ(causeOf(script), "The pattern cannot be read");
}

TEST(RunWords, TellDurationsInTheUnitThatFits) {
  struct Case {
    std::chrono::nanoseconds duration;
    std::string words;
  };
  for (const auto& [duration, words] : {
           Case{-5s, "0 ms"},
           Case{0s, "0 ms"},
           Case{400us, "0 ms"},
           Case{600us, "1 ms"},
           Case{999ms, "999 ms"},
           Case{1000ms, "1.0 s"},
           Case{12349ms, "12.3 s"},
           Case{12350ms, "12.4 s"},
           Case{59949ms, "59.9 s"},
           Case{59950ms, "1 min 00 s"},
           Case{245499ms, "4 min 05 s"},
           Case{59min + 59s + 499ms, "59 min 59 s"},
           Case{59min + 59s + 500ms, "1 h 00 min"},
           Case{26h + 3min + 59s, "26 h 03 min"},
       }) {
    EXPECT_EQ(durationInWords(duration), words) << duration.count();
  }
}

TEST(RunWords, CountDownInWholeSeconds) {
  struct Case {
    std::chrono::nanoseconds duration;
    std::string words;
  };
  for (const auto& [duration, words] : {
           Case{-5s, "0 s"},
           Case{0s, "0 s"},
           Case{1ns, "1 s"},
           Case{8s, "8 s"},
           Case{59s, "59 s"},
           Case{59s + 1ms, "1 min 00 s"},
           Case{65s, "1 min 05 s"},
           Case{2h + 3min, "2 h 03 min"},
       }) {
    EXPECT_EQ(countdownInWords(duration), words) << duration.count();
  }
}

}  // namespace
}  // namespace quobrak::host
