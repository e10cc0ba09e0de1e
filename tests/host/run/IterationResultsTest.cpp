#include "host/run/IterationResults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "tests/host/run/RecordedListener.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TemporaryFolder;

constexpr const char* MEASURE =
    R"({"measures":[[{"time":1,"values":{}},{"time":5,"values":{}}],[]],"test":"Step","testTime":4})";

class CollectedResults : public ::testing::Test {
 protected:
  CollectedResults() {
    run.scripts = {{.suite = "Shop", .name = "order", .source = {}, .lineCount = 3},
                   {.suite = "Shop", .name = "search", .source = {}, .lineCount = 3}};
    iteration.folder = "iterations/001";
    iteration.scripts = {ScriptRecord{}, ScriptRecord{}};
    iteration.scripts[1].script = 1;
  }

  void take(std::string_view json) { progress.take(JSONDecoder::decode(json)); }

  /// Both scripts as the trace tells them, the first one with a step.
  void takeWholeTrace() {
    take(R"({"event":"scriptStarted","number":1,"time":1})");
    take(R"({"event":"step","name":"Step","start":1,"stop":5,"duration":4})");
    take(R"({"event":"scriptFinished","status":"success","stackTrace":"","time":6})");
    take(R"({"event":"scriptStarted","number":2,"time":7})");
    take(R"({"event":"lineFinished","number":2,"text":"clickByText,A","duration":1,"time":8,)"
         R"("error":{"kind":"fdslError","message":"not found"}})");
    take(R"({"event":"scriptFinished","status":"failed","stackTrace":"as in the trace","time":9})");
  }

  void writeStatuses() {
    folder.write("testsStatus.json",
                 R"([{"stackTrace":"","status":"success"},{"stackTrace":"Error on line","status":"failed"}])");
  }

  std::vector<std::string> collect(const ChildEnd& how, std::optional<int> endSignal = std::nullopt) {
    return collectResults(run, folder.path(), {.how = how, .endSignal = endSignal, .wallTime = std::chrono::seconds(2)},
                          progress, iteration);
  }

  static ChildEnd exited(int status) { return {.exitStatus = status, .signal = {}}; }

  const TemporaryFolder folder;
  RunRecord run;
  IterationRecord iteration;
  RecordedListener listener;
  IterationProgress progress{iteration, listener};
};

TEST_F(CollectedResults, AreStatusesMeasuresAndWhatTheTraceKnows) {
  takeWholeTrace();
  writeStatuses();
  folder.write("measures/fernwick--Step-1.json", MEASURE);
  EXPECT_THAT(collect(exited(0)), IsEmpty());
  EXPECT_EQ(iteration.outcome, IterationOutcome::finished);
  EXPECT_EQ(iteration.message, "");
  EXPECT_EQ(iteration.wallTime, std::chrono::seconds(2));
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::passed);
  EXPECT_THAT(iteration.scripts[0].steps,
              ElementsAre(MeasuredStep{.name = "Step", .start = 1, .stop = 5, .duration = 4}));
  EXPECT_EQ(iteration.scripts[1].outcome, ScriptOutcome::failed);
  EXPECT_EQ(iteration.scripts[1].stackTrace, "Error on line");
  EXPECT_EQ(iteration.scripts[1].cause, "not found");
  EXPECT_EQ(iteration.scripts[1].line, (RunLine{.number = 2, .text = "clickByText,A"}));
}

TEST_F(CollectedResults, TellThatTheTraceIsIncomplete) {
  take(R"({"event":"scriptStarted","number":1,"time":1})");
  writeStatuses();
  EXPECT_THAT(collect(exited(0)), ElementsAre("The trace of this iteration is incomplete; what could not be written is "
                                              "told in iterations/001/output.txt"));
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::passed);
  EXPECT_EQ(iteration.scripts[1].outcome, ScriptOutcome::failed);
}

TEST_F(CollectedResults, OfAnAbortNameTheLine) {
  folder.write("output.txt", "Fatal error: too long (line 3: pause,9)\n");
  take(R"({"event":"scriptStarted","number":1,"time":1})");
  take(R"({"event":"step","name":"Step","start":1,"stop":5,"duration":4})");
  take(R"({"event":"lineStarted","number":3,"text":"pause,9","time":2})");
  EXPECT_THAT(collect({.exitStatus = {}, .signal = SIGABRT}), IsEmpty());
  EXPECT_EQ(iteration.outcome, IterationOutcome::aborted);
  EXPECT_EQ(iteration.message, "The test process stopped itself at line 3 of Shop/order: pause,9");
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::aborted);
  EXPECT_EQ(iteration.scripts[0].cause, "too long");
  EXPECT_EQ(iteration.scripts[0].line, (RunLine{.number = 3, .text = "pause,9"}));
  EXPECT_THAT(iteration.scripts[0].steps, IsEmpty());
  EXPECT_EQ(iteration.scripts[1].outcome, ScriptOutcome::notRun);
}

TEST_F(CollectedResults, OfAnInterruptionKeepWhatIsDone) {
  take(R"({"event":"scriptStarted","number":1,"time":1})");
  take(R"({"event":"scriptFinished","status":"success","stackTrace":"","time":6})");
  take(R"({"event":"scriptStarted","number":2,"time":7})");
  take(R"({"event":"lineStarted","number":3,"text":"pause,9","time":8})");
  collect({.exitStatus = {}, .signal = SIGTERM}, SIGINT);
  EXPECT_EQ(iteration.outcome, IterationOutcome::interrupted);
  EXPECT_EQ(iteration.message, "Ended by Ctrl-C at line 3 of Shop/search: pause,9");
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::passed);
  EXPECT_EQ(iteration.scripts[1].outcome, ScriptOutcome::aborted);
}

TEST_F(CollectedResults, OfAProcessThatCouldNotWriteThemAreThoseOfTheTrace) {
  takeWholeTrace();
  folder.write("output.txt",
               "error: -[quobrakUITests testMain] : failed: caught error: \"out of space\"\nTest Case 'x' failed\n");
  collect(exited(1));
  EXPECT_EQ(iteration.outcome, IterationOutcome::failed);
  EXPECT_EQ(iteration.message, "The test process ended with an error: out of space");
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::passed);
  EXPECT_EQ(iteration.scripts[1].outcome, ScriptOutcome::failed);
  EXPECT_EQ(iteration.scripts[1].stackTrace, "as in the trace");
}

TEST_F(CollectedResults, ThatAreMissingAreNoSuccess) {
  takeWholeTrace();
  collect(exited(0));
  EXPECT_EQ(iteration.outcome, IterationOutcome::failed);
  EXPECT_EQ(iteration.message, "The test process ended as if all were well, but left no results: the file " +
                                   (folder.path() / "testsStatus.json").string() +
                                   " cannot be read: No such file or directory");
}

TEST_F(CollectedResults, ThatDoNotFitTheScriptsAreNoSuccess) {
  const std::string beginning = "The test process ended as if all were well, but left no results: testsStatus.json ";
  folder.write("testsStatus.json", R"([{"stackTrace":"","status":"success"}])");
  collect(exited(0));
  EXPECT_EQ(iteration.message, beginning + "has a status for 1 scripts, and 2 were run");
  folder.write("testsStatus.json", "{}");
  collect(exited(0));
  EXPECT_EQ(iteration.message, beginning + "cannot be used: the document: expected an array, found an object");
}

class ResultsOfACommand : public CollectedResults {
 protected:
  ResultsOfACommand() {
    run.kind = RunKind::command;
    run.scripts = {{.suite = "", .name = "pause,1", .source = {}, .lineCount = 1}};
    iteration.scripts.resize(1);
  }
};

TEST_F(ResultsOfACommand, AreItsOutcome) {
  EXPECT_THAT(collect(exited(0)), IsEmpty());
  EXPECT_EQ(iteration.outcome, IterationOutcome::finished);
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::passed);
}

TEST_F(ResultsOfACommand, ThatFailsAreItsWords) {
  folder.write("output.txt",
               "error: -[quobrakUITests testMain] : failed: caught error: \"not found\"\nTest Case 'x' failed\n");
  collect(exited(1));
  EXPECT_EQ(iteration.outcome, IterationOutcome::finished);
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::failed);
  EXPECT_EQ(iteration.scripts[0].cause, "not found");
}

TEST_F(ResultsOfACommand, ThatIsAbortedAreItsWords) {
  folder.write("output.txt", "Fatal error: too long\n");
  collect({.exitStatus = {}, .signal = SIGABRT});
  EXPECT_EQ(iteration.outcome, IterationOutcome::aborted);
  EXPECT_EQ(iteration.message, "The test process stopped itself in pause,1");
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::aborted);
  EXPECT_EQ(iteration.scripts[0].cause, "too long");
}

TEST_F(ResultsOfACommand, ThatWasNotRunAreNone) {
  folder.write("output.txt", "configuration error: no phone\n");
  collect(exited(2));
  EXPECT_EQ(iteration.outcome, IterationOutcome::misconfigured);
  EXPECT_EQ(iteration.message, "The test process refused its configuration: no phone");
  EXPECT_EQ(iteration.scripts[0].outcome, ScriptOutcome::notRun);
}

}  // namespace
}  // namespace quobrak::host
