#include "host/report/Summary.h"

#include <gtest/gtest.h>

#include "tests/host/report/SampleRun.h"

namespace quobrak::host {
namespace {

TEST(Summary, TellsOfScriptsFailuresAndSteps) {
  EXPECT_EQ(summaryOf(sampleRun(), Terminal{}), R"(Scripts, in 3 iterations after 1 warm-up:
script         passed  failed  aborted  not run
Shop/order          3       0        0        0
Shop/login          1       1        1        0
設定/settings       2       0        0        1

How they first failed:
  Shop/login, iteration 1, failed: line 3: clickByText,Lamb: The expected text Lamb was not found

Iterations that did not finish:
  iteration 3, aborted: The test process stopped itself at line 5 of Shop/login: clickByText

Steps, in milliseconds:
script         step  n  median   mean   sd  min  max  left out
Shop/order     Show  3   103.0  104.3  5.1  100  110         1
Shop/order     Pay   1     7.0    7.0    –    7    7         1
Shop/login     Type  1     8.0    8.0    –    8    8         2
設定/settings  Show  2    41.5   41.5  2.1   40   43         1

Results: /home/anna/runs/today (results.json, junit.xml)
)");
}

TEST(Summary, OfARunThatWentWellIsShort) {
  RunRecord run = sampleRun();
  run.scripts.resize(1);
  run.plannedWarmUps = 0;
  run.plannedIterations = 1;
  run.iterations = {run.iterations.at(1)};
  run.iterations.front().scripts.resize(1);
  EXPECT_EQ(summaryOf(run, Terminal{}), R"(Scripts, in 1 iteration:
script      passed  failed  aborted  not run
Shop/order       1       0        0        0

Steps, in milliseconds:
script      step  n  median   mean  sd  min  max  left out
Shop/order  Show  1   100.0  100.0   –  100  100         0
Shop/order  Pay   1     7.0    7.0   –    7    7         0

Results: /home/anna/runs/today (results.json, junit.xml)
)");
}

TEST(Summary, OfARunThatWasEndedTellsHowFarItCame) {
  RunRecord run = sampleRun();
  run.scripts.resize(1);
  run.plannedWarmUps = 2;
  run.iterations.resize(1);
  run.iterations.front().scripts.resize(1);
  run.iterations.front().outcome = IterationOutcome::interrupted;
  run.endedEarly = true;
  EXPECT_EQ(summaryOf(run, Terminal{}), R"(Scripts, in 0 of 3 iterations after 1 of 2 warm-ups:
script      passed  failed  aborted  not run
Shop/order       0       0        0        0

Iterations that did not finish:
  warm-up 1, interrupted

The run was ended early.

Results: /home/anna/runs/today (results.json, junit.xml)
)");
}

TEST(Summary, FitsATerminal) {
  RunRecord run = sampleRun();
  run.iterations.resize(3);
  run.scripts.at(0).name = "ordering something very special in the shop";
  run.iterations.at(1).scripts.at(0).steps.at(0).name = "設定設定設定設定設定設定設定設定";
  EXPECT_EQ(summaryOf(run, {.isInteractive = true, .width = 78}), R"(Scripts, in 2 of 3 iterations after 1 warm-up:
script                                        passed  failed  aborted  not run
Shop/ordering something very special in the…       2       0        0        0
Shop/login                                         1       1        0        0
設定/settings                                      2       0        0        0

How they first failed:
  Shop/login, iteration 1, failed: line 3: clickByText,Lamb: The expected text Lamb was not found

Steps, in milliseconds:
script            step               n  median   mean   sd  min  max  left out
Shop/ordering s…  設定設定設定設定…  1   100.0  100.0    –  100  100         0
Shop/ordering s…  Pay                1     7.0    7.0    –    7    7         0
Shop/ordering s…  Show               2   106.5  106.5  4.9  103  110         0
Shop/login        Type               1     8.0    8.0    –    8    8         1
設定/settings     Show               2    41.5   41.5  2.1   40   43         0

Results: /home/anna/runs/today (results.json, junit.xml)
)");
}

TEST(Summary, HasColoursForWhatStandsOut) {
  RunRecord run = sampleRun();
  run.scripts.resize(1);
  run.iterations = {run.iterations.at(1), run.iterations.at(3)};
  for (IterationRecord& iteration : run.iterations) {
    iteration.scripts.resize(1);
    iteration.outcome = IterationOutcome::finished;
  }
  run.iterations.at(1).scripts.at(0).outcome = ScriptOutcome::failed;
  run.plannedWarmUps = 0;
  run.plannedIterations = 2;
  EXPECT_EQ(summaryOf(run, {.isInteractive = true, .hasColour = true}),
            "Scripts, in 2 iterations:\n"
            "\x1b[1mscript\x1b[0m      \x1b[1mpassed\x1b[0m  \x1b[1mfailed\x1b[0m  \x1b[1maborted\x1b[0m  "
            "\x1b[1mnot run\x1b[0m\n"
            "Shop/order       \x1b[32m1\x1b[0m       \x1b[31m1\x1b[0m        0        0\n"
            "\n"
            "How they first failed:\n"
            "  Shop/order, iteration 3, failed\n"
            "\n"
            "Steps, in milliseconds:\n"
            "\x1b[1mscript\x1b[0m      \x1b[1mstep\x1b[0m  \x1b[1mn\x1b[0m  \x1b[1mmedian\x1b[0m   "
            "\x1b[1mmean\x1b[0m  \x1b[1msd\x1b[0m  \x1b[1mmin\x1b[0m  \x1b[1mmax\x1b[0m  "
            "\x1b[1mleft out\x1b[0m\n"
            "Shop/order  Show  1   100.0  100.0   –  100  100         \x1b[33m1\x1b[0m\n"
            "Shop/order  Pay   1     7.0    7.0   –    7    7         \x1b[33m1\x1b[0m\n"
            "\n"
            "Results: /home/anna/runs/today (results.json, junit.xml)\n");
}

TEST(Summary, ShowsControlCharacters) {
  RunRecord run = sampleRun();
  run.folder = "/tmp/a\x1b[2J";
  run.scripts.resize(1);
  run.scripts.front().name = "or\x1b[2Jder";
  run.iterations = {run.iterations.at(3)};
  run.iterations.front().message = "It was\x1b[2J ended.";
  run.iterations.front().scripts = {run.iterations.front().scripts.at(1)};
  run.iterations.front().scripts.front().script = 0;
  run.iterations.front().scripts.front().line->text = "click\x1b[2J";
  run.iterations.front().scripts.front().cause = "no\nwhy";
  run.iterations.front().scripts.front().steps = {{.name = "St\x07"
                                                           "ep",
                                                   .start = 0,
                                                   .stop = 0,
                                                   .duration = 0}};
  EXPECT_EQ(summaryOf(run, Terminal{}), R"(Scripts, in 1 of 3 iterations after 0 of 1 warm-up:
script          passed  failed  aborted  not run
Shop/or␛[2Jder       0       0        1        0

How they first failed:
  Shop/or␛[2Jder, iteration 3, aborted: line 5: click␛[2J: no␊why

Iterations that did not finish:
  iteration 3, aborted: It was␛[2J ended.

Steps, in milliseconds:
script          step   n  median  mean  sd  min  max  left out
Shop/or␛[2Jder  St␇ep  0       –     –   –    –    –         1

Results: /tmp/a␛[2J (results.json, junit.xml)
)");
}

}  // namespace
}  // namespace quobrak::host
