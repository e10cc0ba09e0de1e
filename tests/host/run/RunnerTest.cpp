#include "host/run/Runner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <deque>
#include <fstream>

#include "host/Subcommand.h"
#include "quobrakUITests/ScriptLines.h"
#include "quobrakUITests/quobrakUITests.h"
#include "tests/host/run/RecordedListener.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

/// What a test process does in place of a real one.
using Deed = std::function<ProcessEnd(const fs::path& documents)>;

ProcessEnd endWith(int status) {
  return {.how = {.exitStatus = status, .signal = {}}, .endSignal = {}, .wallTime = 1ms};
}

void write(const fs::path& file, const std::string& text) {
  std::ofstream(file) << text;
}

/// Two scripts, which end with these statuses.
Deed finishing(const std::string& first, const std::string& second) {
  return [=](const fs::path& documents) {
    std::string trace;
    std::string statuses;
    for (const auto& [number, status] : {std::pair{"1", first}, std::pair{"2", second}}) {
      const std::string of(number);
      trace += R"({"event":"scriptStarted","number":)" + of + R"(,"time":1})" + "\n";
      trace += R"({"event":"scriptFinished","status":")" + status + R"(","stackTrace":"","time":2})" + "\n";
      statuses += (statuses.empty() ? "" : ",") + (R"({"stackTrace":"","status":")" + status + R"("})");
    }
    write(documents / "trace.jsonl", trace);
    write(documents / "testsStatus.json", "[" + statuses + "]");
    return endWith(0);
  };
}

const Deed PASSING = finishing("success", "success");
const Deed FAILING = finishing("success", "failed");

Deed aborting() {
  return [](const fs::path& documents) {
    write(documents / "trace.jsonl", R"({"event":"scriptStarted","number":1,"time":1})"
                                     "\n");
    write(documents / "output.txt", "Fatal error: too long\n");
    return ProcessEnd{.how = {.exitStatus = {}, .signal = SIGABRT}, .endSignal = {}, .wallTime = 1ms};
  };
}

Deed interrupted() {
  return [](const fs::path&) {
    return ProcessEnd{.how = {.exitStatus = {}, .signal = SIGTERM}, .endSignal = SIGINT, .wallTime = 1ms};
  };
}

Deed unstartable() {
  return [](const fs::path&) -> ProcessEnd { throw EnvironmentError("no such program"); };
}

/// Does one deed for each process.
class FakeSupervisor final : public Supervisor {
 public:
  ProcessEnd run(const ChildStart& start, const Tick& tick) override {
    starts.push_back(start);
    const Deed deed = deeds.front();
    deeds.pop_front();
    tick();
    return deed(start.output.parent_path());
  }

  std::optional<int> rest(std::chrono::milliseconds duration, const Tick& tick) override {
    rests.push_back(duration);
    tick();
    return restSignal;
  }

  std::deque<Deed> deeds;
  std::vector<ChildStart> starts;
  std::vector<std::chrono::milliseconds> rests;
  std::optional<int> restSignal;
};

class ARun : public ::testing::Test {
 protected:
  ARun() {
    plan.scripts = {{.script = {.suite = "S", .name = "a", .source = "a.txt", .lineCount = 1},
                     .fileName = "a.txt",
                     .bytes = "pause,1"},
                    {.script = {.suite = "S", .name = "Documents", .source = "b.txt", .lineCount = 1},
                     .fileName = "Documents.txt",
                     .bytes = "pause,2"}};
    plan.testProcess = "/program";
    plan.folder = folder.path();
  }

  FinishedRun carryOut() { return host::carryOut(plan, supervisor, listener); }

  static std::vector<IterationOutcome> outcomesOf(const FinishedRun& run) {
    std::vector<IterationOutcome> outcomes;
    std::transform(run.record.iterations.begin(), run.record.iterations.end(), std::back_inserter(outcomes),
                   [](const IterationRecord& iteration) { return iteration.outcome; });
    return outcomes;
  }

  const TemporaryFolder folder;
  RunPlan plan;
  FakeSupervisor supervisor;
  RecordedListener listener;
};

TEST_F(ARun, StartsATestProcessForEachIteration) {
  plan.iterations = 2;
  plan.warmUps = 1;
  plan.environment = {{"A", "1"}, {"QUOBRAK_CLOCK", "virtual"}, {"QUOBRAK_PHONE", "/phone"}};
  supervisor.deeds = {PASSING, PASSING, PASSING};
  const FinishedRun run = carryOut();
  EXPECT_EQ(exitStatusOf(run), ExitStatus::success);
  const std::string root = folder.path().string();
  ASSERT_EQ(supervisor.starts.size(), 3U);
  EXPECT_EQ(supervisor.starts[0].executable, "/program");
  EXPECT_EQ(supervisor.starts[0].output, root + "/warmups/001/output.txt");
  EXPECT_EQ(supervisor.starts[2].output, root + "/iterations/002/output.txt");
  EXPECT_THAT(supervisor.starts[0].environment, Contains("iteration=0"));
  EXPECT_THAT(supervisor.starts[1].environment, Contains("iteration=1"));
  EXPECT_THAT(
      supervisor.starts[2].environment,
      ElementsAre("A=1", "QUOBRAK_CLOCK=virtual", "QUOBRAK_DOCUMENTS=" + root + "/iterations/002",
                  "QUOBRAK_PHONE=/phone", "QUOBRAK_TRACE=" + root + "/iterations/002/trace.jsonl",
                  "class=dslTestsSuites", "iteration=2", "testFileNumber=2", "testFilePath1=scripts/001/a.txt",
                  "testFilePath2=scripts/002//DocumentsDocuments.txt", "testFileSuiteName1=S", "testFileSuiteName2=S"));
  EXPECT_EQ(folder.read("iterations/002/scripts/001/a.txt"), "pause,1");
  EXPECT_EQ(folder.read("iterations/002/scripts/002/Documents.txt"), "pause,2");
}

TEST_F(ARun, IsRecorded) {
  plan.iterations = 2;
  plan.warmUps = 1;
  plan.environment = {{"QUOBRAK_CLOCK", "virtual"}, {"QUOBRAK_PHONE", "/phone"}};
  supervisor.deeds = {PASSING, FAILING, PASSING};
  const FinishedRun run = carryOut();
  const RunRecord& record = run.record;
  EXPECT_EQ(record.kind, RunKind::scripts);
  EXPECT_EQ(record.folder, folder.path());
  EXPECT_EQ(record.plannedWarmUps, 1U);
  EXPECT_EQ(record.plannedIterations, 2U);
  EXPECT_EQ(record.clock, "virtual");
  EXPECT_EQ(record.driver, "simulator");
  EXPECT_EQ(record.phone, "/phone");
  EXPECT_FALSE(record.endedEarly);
  ASSERT_EQ(record.scripts.size(), 2U);
  EXPECT_EQ(record.scripts[1].name, "Documents");
  ASSERT_EQ(record.iterations.size(), 3U);
  EXPECT_TRUE(record.iterations[0].isWarmUp);
  EXPECT_EQ(record.iterations[0].number, 1U);
  EXPECT_EQ(record.iterations[0].folder, "warmups/001");
  EXPECT_FALSE(record.iterations[1].isWarmUp);
  EXPECT_EQ(record.iterations[1].number, 1U);
  EXPECT_EQ(record.iterations[2].number, 2U);
  EXPECT_EQ(record.iterations[2].folder, "iterations/002");
  EXPECT_EQ(record.iterations[1].scripts[1].outcome, ScriptOutcome::failed);
  EXPECT_EQ(record.iterations[2].scripts[1].outcome, ScriptOutcome::passed);
}

TEST_F(ARun, IsToldAsItGoesOn) {
  plan.warmUps = 1;
  plan.rest = 30s;
  plan.notices = {"mind the gap"};
  supervisor.deeds = {PASSING, aborting()};
  carryOut();
  EXPECT_THAT(listener.heard,
              ElementsAre("run of 1 iterations", "notice: mind the gap", "iteration 1 (warm-up)", "time passed",
                          "script 0 at 1", "script 0 passed", "script 1 at 2", "script 1 passed", "end of iteration 1",
                          "rest of 30000", "time passed", "iteration 1", "time passed", "script 0 at 1",
                          "script 0 did not pass: too long",
                          "end of iteration 1: The test process stopped itself in S/a", "end"));
  EXPECT_THAT(supervisor.rests, ElementsAre(30s));
}

TEST_F(ARun, TakesTheScriptsInOrdersThatTheSeedTells) {
  plan.iterations = 3;
  plan.warmUps = 2;
  plan.shuffleSeed = 3;
  plan.scripts.push_back(plan.scripts.front());
  plan.scripts.push_back(plan.scripts.front());
  supervisor.deeds.assign(5, [](const fs::path&) { return endWith(2); });
  supervisor.deeds.assign(5, aborting());
  const FinishedRun run = carryOut();
  std::vector<std::vector<std::size_t>> orders;
  for (const IterationRecord& iteration : run.record.iterations) {
    std::vector<std::size_t>& order = orders.emplace_back();
    for (const ScriptRecord& script : iteration.scripts) {
      order.push_back(script.script);
    }
  }
  ASSERT_EQ(orders.size(), 5U);
  // Warm-ups take none of the orders of iterations.
  EXPECT_EQ(orders[0], orders[2]);
  EXPECT_EQ(orders[1], orders[3]);
  EXPECT_NE(orders[2], orders[3]);
  // A script lies where it always lies.
  const std::string first =
      "testFilePath1=" + tellablePlaceOfScript(orders[2][0], 4, plan.scripts[orders[2][0]].fileName);
  EXPECT_THAT(supervisor.starts[2].environment, Contains(first));
  EXPECT_EQ(run.record.shuffleSeed, 3U);
}

TEST_F(ARun, GoesOnAfterAnAbort) {
  plan.iterations = 3;
  supervisor.deeds = {PASSING, aborting(), PASSING};
  const FinishedRun run = carryOut();
  EXPECT_THAT(outcomesOf(run),
              ElementsAre(IterationOutcome::finished, IterationOutcome::aborted, IterationOutcome::finished));
  EXPECT_EQ(exitStatusOf(run), ExitStatus::aborted);
  EXPECT_FALSE(run.record.endedEarly);
}

TEST_F(ARun, EndsAfterTheFirstFailureWhereItIsToFailFast) {
  plan.iterations = 3;
  plan.isFailFast = true;
  supervisor.deeds = {PASSING, FAILING};
  const FinishedRun run = carryOut();
  EXPECT_THAT(outcomesOf(run), ElementsAre(IterationOutcome::finished, IterationOutcome::finished));
  EXPECT_EQ(exitStatusOf(run), ExitStatus::failed);
  EXPECT_TRUE(run.record.endedEarly);
  EXPECT_EQ(listener.heard.back(), "early end");
}

TEST_F(ARun, EndsWhereTheTestProcessCannotBeUsed) {
  plan.iterations = 3;
  supervisor.deeds = {[](const fs::path&) { return endWith(2); }};
  EXPECT_THAT(outcomesOf(carryOut()), ElementsAre(IterationOutcome::misconfigured));
  supervisor.deeds = {[](const fs::path&) { return endWith(1); }};
  plan.folder = folder.path() / "second";
  const FinishedRun run = carryOut();
  EXPECT_THAT(outcomesOf(run), ElementsAre(IterationOutcome::failed));
  EXPECT_EQ(exitStatusOf(run), ExitStatus::environmentFailed);
  EXPECT_TRUE(run.record.endedEarly);
}

TEST_F(ARun, KeepsWhatIsDoneWhereOneCannotBeStarted) {
  plan.iterations = 3;
  supervisor.deeds = {PASSING, unstartable()};
  const FinishedRun run = carryOut();
  EXPECT_THAT(outcomesOf(run), ElementsAre(IterationOutcome::finished, IterationOutcome::misconfigured));
  EXPECT_EQ(run.record.iterations.back().message, "Could not be run: no such program");
  EXPECT_EQ(exitStatusOf(run), ExitStatus::environmentFailed);
}

TEST_F(ARun, KeepsWhatIsDoneWhereAFolderCannotBeMade) {
  plan.iterations = 2;
  folder.write("iterations/002", "a file in the way");
  supervisor.deeds = {PASSING};
  const FinishedRun run = carryOut();
  EXPECT_THAT(outcomesOf(run), ElementsAre(IterationOutcome::finished, IterationOutcome::misconfigured));
  const std::string path = (folder.path() / "iterations/002").string();
  EXPECT_EQ(run.record.iterations.back().message, "Could not be run: " + path + " cannot be made: Not a directory");
}

TEST_F(ARun, EndsWhenItIsToldToWhileATestProcessRuns) {
  plan.iterations = 3;
  supervisor.deeds = {PASSING, interrupted()};
  const FinishedRun run = carryOut();
  EXPECT_THAT(outcomesOf(run), ElementsAre(IterationOutcome::finished, IterationOutcome::interrupted));
  EXPECT_EQ(exitStatusOf(run), ExitStatus::interrupted);
  EXPECT_TRUE(run.record.endedEarly);
}

TEST_F(ARun, ThatIsToldToEndInItsLastIterationEndsEarly) {
  supervisor.deeds = {interrupted()};
  EXPECT_TRUE(carryOut().record.endedEarly);
}

TEST_F(ARun, EndsWhenItIsToldToWhileItRests) {
  plan.iterations = 3;
  supervisor.deeds = {PASSING};
  supervisor.restSignal = SIGTERM;
  const FinishedRun run = carryOut();
  EXPECT_THAT(outcomesOf(run), ElementsAre(IterationOutcome::finished));
  EXPECT_EQ(exitStatusOf(run), ExitStatus::terminated);
  EXPECT_TRUE(run.record.endedEarly);
}

TEST_F(ARun, TellsOfLinesOfTheTraceThatCannotBeRead) {
  supervisor.deeds = {[](const fs::path& documents) {
    PASSING(documents);
    std::ofstream(documents / "trace.jsonl", std::ios::app) << "nonsense\n";
    return endWith(0);
  }};
  carryOut();
  EXPECT_THAT(listener.heard, Contains("notice: Lines of the trace that could not be read: 1"));
}

TEST_F(ARun, OfACommandHasOneScript) {
  plan.kind = RunKind::command;
  plan.scripts.clear();
  plan.command = "pause,1";
  supervisor.deeds = {[](const fs::path&) { return endWith(0); }};
  const FinishedRun run = carryOut();
  EXPECT_EQ(exitStatusOf(run), ExitStatus::success);
  ASSERT_EQ(run.record.scripts.size(), 1U);
  EXPECT_EQ(run.record.scripts.front().suite, "");
  EXPECT_EQ(run.record.scripts.front().name, "pause,1");
  EXPECT_THAT(listener.heard, ElementsAre("run of 1 iterations", "iteration 1", "script 0 at 1", "time passed",
                                          "script 0 passed", "end of iteration 1", "end"));
}

TEST_F(ARun, OfTheReferenceScriptKnowsItsNameAndLength) {
  ::setenv("iteration", "1", 1);
  const TestFile reference = quobrakUITests().getTestFileForReference().front();
  ScriptLines lines(reference.script);
  std::size_t count = 0;
  while (lines.next()) {
    ++count;
  }
  plan.kind = RunKind::reference;
  plan.scripts.clear();
  supervisor.deeds = {aborting()};
  const FinishedRun run = carryOut();
  ASSERT_EQ(run.record.scripts.size(), 1U);
  const RunScript& script = run.record.scripts.front();
  EXPECT_EQ("tests-results/" + script.suite + "/" + script.name + "/iteration1", reference.iterationPath);
  EXPECT_EQ(script.lineCount, count);
}

TEST(ExitStatusOfARun, IsTheWorst) {
  const auto statusOf = [](const std::vector<IterationOutcome>& outcomes) {
    FinishedRun run;
    for (const IterationOutcome outcome : outcomes) {
      run.record.iterations.emplace_back().outcome = outcome;
    }
    return exitStatusOf(run);
  };
  using enum IterationOutcome;
  EXPECT_EQ(statusOf({finished, finished}), ExitStatus::success);
  EXPECT_EQ(statusOf({aborted, finished}), ExitStatus::aborted);
  EXPECT_EQ(statusOf({aborted, failed, finished}), ExitStatus::environmentFailed);
  EXPECT_EQ(statusOf({misconfigured}), ExitStatus::environmentFailed);
}

}  // namespace
}  // namespace quobrak::host
