#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "host/run/FileDescriptor.h"
#include "tests/host/process/HostRun.h"

namespace quobrak::testing {

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* MEASURING = "applicationStart,com.example.test\nmeasureStart,Step\npause,40\nmeasureStop";

/// A stand-in that runs the real test process and acts when the trace tells of a line: `act` is shell.
std::string actingAtLine(const std::string& text, const std::string& act) {
  return "trace=$QUOBRAK_TRACE\n"
         "export QUOBRAK_TRACE=fd:3\n"
         "{ \"$REAL\" 3>&1 >&4 4>&-; } 4>&1 | while IFS= read -r line; do\n"
         "  printf '%s\\n' \"$line\" >> \"$trace\"\n"
         "  case $line in\n"
         "    *'\"event\":\"lineStarted\"'*'\"text\":\"" +
         text + "\"'*) " + act +
         " ;;\n"
         "  esac\n"
         "done\n";
}

class RunFaults : public HostRun {
 protected:
  /// Runs with a stand-in for the test process.
  ProcessEnd runWith(const std::string& shellScript, std::vector<std::string> arguments) const {
    std::vector<std::string> all = realTestProcess();
    all.insert(all.end(), {"--test-process", testProcess(shellScript)});
    all.insert(all.end(), arguments.begin(), arguments.end());
    return run(all);
  }

  std::vector<std::string> outcomes() const {
    const JSONValue document = results();
    return textsOf(JSONReader(document).member("iterations"), "outcome");
  }

  std::vector<std::string> messages() const {
    const JSONValue document = results();
    return textsOf(JSONReader(document).member("iterations"), "message");
  }

  /// The outcomes of the scripts of one iteration, which is counted from 0.
  std::vector<std::string> outcomesOfScripts(std::size_t iteration) const {
    const JSONValue document = results();
    return textsOf(JSONReader(document).member("iterations").elements().at(iteration).member("scripts"), "outcome");
  }
};

}  // namespace

TEST_F(RunFaults, AnAbortNamesItsLineAndTheOtherIterationsAreKept) {
  folder.write("S/a.txt", MEASURING);
  folder.write("S/b.txt", "pause,1\n\npause,2");
  folder.write("S/c.txt", "pause,1");
  const ProcessEnd end = runWith(
      "[ $iteration != 2 ] || printf 'pause,1\\n\\nmeasureStart' > \"$QUOBRAK_DOCUMENTS/scripts/002/b.txt\"\n"
      "exec \"$REAL\"\n",
      {"S", "--iterations", "3"});
  EXPECT_EQ(end.exitStatus, 3);
  const std::string words = "Index out of range: the field 1 (stepName) is missing";
  EXPECT_THAT(outcomes(), ElementsAre("finished", "aborted", "finished"));
  EXPECT_THAT(messages(), ElementsAre("", "The test process stopped itself at line 3 of S/b: measureStart", ""));
  EXPECT_THAT(outcomesOfScripts(0), ElementsAre("passed", "passed", "passed"));
  EXPECT_THAT(outcomesOfScripts(1), ElementsAre("passed", "aborted", "notRun"));
  EXPECT_THAT(outcomesOfScripts(2), ElementsAre("passed", "passed", "passed"));
  EXPECT_THAT(end.err, StartsWith("Iteration 2 of 3: S/b aborted: line 3: measureStart: " + words + "\n"));
}

TEST_F(RunFaults, AnAbortEndsTheRunWhereItIsToFailFast) {
  folder.write("S/a.txt", "measureStop");
  const ProcessEnd end = run({"--no-check", "S", "--iterations", "3", "--fail-fast"});
  EXPECT_EQ(end.exitStatus, 3);
  EXPECT_THAT(outcomes(), ElementsAre("aborted"));
}

TEST_F(RunFaults, AScriptThatFailsIsTriedInAllIterations) {
  folder.write("S/a.txt", "applicationStart,com.example.test\nclickByText,Lamb");
  const ProcessEnd end = run({"S", "--iterations", "2"});
  EXPECT_EQ(end.exitStatus, 1);
  EXPECT_EQ(end.err,
            "Iteration 1 of 2: S/a failed: line 2: clickByText,Lamb: The expected text Lamb was not found\n"
            "Iteration 2 of 2: S/a failed: line 2: clickByText,Lamb: The expected text Lamb was not found\n"
            "Results: out\n");
  EXPECT_THAT(outcomes(), ElementsAre("finished", "finished"));
}

TEST_F(RunFaults, AScriptThatFailsEndsTheRunWhereItIsToFailFast) {
  folder.write("S/a.txt", "applicationStart,com.example.test\nclickByText,Lamb");
  EXPECT_EQ(run({"S", "--iterations", "2", "--fail-fast"}).exitStatus, 1);
  EXPECT_THAT(outcomes(), ElementsAre("finished"));
}

TEST_F(RunFaults, ATestProcessThatIsKilledFromOutsideIsToldWithItsLine) {
  folder.write("S/a.txt", "pause,1");
  folder.write("S/b.txt", "pause,1\npause,600000");
  folder.write("S/c.txt", "pause,1");
  const ProcessEnd end =
      runWith("export QUOBRAK_CLOCK=system\n" + actingAtLine("pause,600000", "kill -KILL $$"), {"S"});
  EXPECT_EQ(end.exitStatus, 3);
  EXPECT_THAT(messages(), ElementsAre("The test process was ended by SIGKILL (Killed) at line 2 of S/b: pause,600000"));
  EXPECT_THAT(outcomesOfScripts(0), ElementsAre("passed", "aborted", "notRun"));
}

TEST_F(RunFaults, CtrlCKeepsWhatIsDone) {
  folder.write("S/a.txt", "measureStart,Step\npause,1\nmeasureStop");
  folder.write("S/b.txt", "pause,1\npause,${PAUSE}");
  const ProcessEnd end = runWith("[ $iteration = 1 ] || export QUOBRAK_CLOCK=system\n" +
                                     actingAtLine("pause,600000", "[ $iteration = 1 ] || kill -INT $PPID"),
                                 {"S", "--iterations", "3", "--var", "PAUSE=600000"});
  EXPECT_EQ(end.exitStatus, 130);
  EXPECT_THAT(outcomes(), ElementsAre("finished", "interrupted"));
  EXPECT_THAT(messages(), ElementsAre("", "Ended by Ctrl-C at line 2 of S/b: pause,600000"));
  EXPECT_THAT(outcomesOfScripts(0), ElementsAre("passed", "passed"));
  EXPECT_THAT(outcomesOfScripts(1), ElementsAre("passed", "aborted"));
  const JSONValue document = results();
  EXPECT_TRUE(JSONReader(document).member("endedEarly").truthValue());
  EXPECT_FALSE(fs::exists(folder.path() / "out/.lock"));
}

TEST_F(RunFaults, SigtermEndsItToo) {
  folder.write("S/a.txt", "pause,1");
  const ProcessEnd end = runWith("kill -TERM $PPID\nexec sleep 600\n", {"S", "--iterations", "3"});
  EXPECT_EQ(end.exitStatus, 143);
  EXPECT_THAT(messages(), ElementsAre("Ended by SIGTERM (Terminated)"));
}

TEST_F(RunFaults, ASecondSignalKillsATestProcessThatDoesNotEnd) {
  folder.write("S/a.txt", "pause,1");
  // Told to end, it asks once more.
  const ProcessEnd end = runWith("trap 'kill -INT $PPID' TERM\nkill -INT $PPID\nwhile :; do :; done\n", {"S"});
  EXPECT_EQ(end.exitStatus, 130);
  EXPECT_THAT(messages(), ElementsAre("Ended by Ctrl-C"));
}

TEST_F(RunFaults, ASignalThatWasIgnoredBeforeStaysIgnored) {
  folder.write("S/a.txt", "applicationStart,com.example.test");
  start.arguments = {"-c",
                     "trap '' HUP; exec \"$0\" \"$@\"",
                     QUOBRAK_PROGRAM,
                     "run",
                     "--quiet",
                     "--out",
                     "out",
                     "S",
                     "--clock",
                     "virtual",
                     "--phone",
                     phone.path().string(),
                     "--var",
                     std::string("REAL=") + QUOBRAK_UI_TESTS,
                     "--test-process",
                     testProcess("kill -HUP $PPID\nexec \"$REAL\"\n")};
  start.executable = "/bin/sh";
  EXPECT_EQ(runExecutable(start).exitStatus, 0);
}

TEST_F(RunFaults, NothingRunsOnWhenTheProgramIsKilled) {
  folder.write("S/a.txt", "pause,1");
  const std::string fifo = (folder.path() / "alive").string();
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  const host::FileDescriptor reader(::open(fifo.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  const ProcessEnd end = runWith("exec 3> '" + fifo + "'\nkill -KILL $PPID\nexec sleep 60\n", {"S"});
  EXPECT_EQ(end.signal, SIGKILL);
  // It hangs up when nobody has it open any more.
  pollfd descriptor{.fd = reader.number(), .events = 0, .revents = 0};
  constexpr int LESS_THAN_THE_SLEEP = 30'000;
  EXPECT_EQ(::poll(&descriptor, 1, LESS_THAN_THE_SLEEP), 1);
}

TEST_F(RunFaults, WhatTheTestProcessStartedEndsWithIt) {
  folder.write("S/a.txt", "pause,1");
  const std::string fifo = (folder.path() / "alive").string();
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  const host::FileDescriptor reader(::open(fifo.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  runWith("exec 3> '" + fifo + "'\nsleep 60 &\nexec \"$REAL\" 3>&-\n", {"S"});
  pollfd descriptor{.fd = reader.number(), .events = 0, .revents = 0};
  constexpr int LESS_THAN_THE_SLEEP = 30'000;
  EXPECT_EQ(::poll(&descriptor, 1, LESS_THAN_THE_SLEEP), 1);
}

TEST_F(RunFaults, AConfigurationThatIsRefusedEndsTheRunAtOnce) {
  folder.write("S/a.txt", "pause,1");
  start.environment["QUOBRAK_REFERENCE_PAGE"] = "ftp://nowhere";
  const ProcessEnd end = run({"S", "--iterations", "3"});
  EXPECT_EQ(end.exitStatus, 4);
  EXPECT_THAT(outcomes(), ElementsAre("misconfigured"));
  EXPECT_THAT(messages(),
              ElementsAre(StartsWith("The test process refused its configuration: QUOBRAK_REFERENCE_PAGE is "
                                     "\"ftp://nowhere\", but must be ")));
}

TEST_F(RunFaults, ATestProcessThatLeavesNoResultsIsNoSuccess) {
  folder.write("S/a.txt", "pause,1");
  const ProcessEnd end = runWith("exit 0\n", {"S", "--iterations", "3"});
  EXPECT_EQ(end.exitStatus, 4);
  EXPECT_THAT(outcomes(), ElementsAre("failed"));
  EXPECT_THAT(messages(), ElementsAre(StartsWith("The test process ended as if all were well, but left no results: ")));
}

TEST_F(RunFaults, ATestProcessThatCannotBeStartedIsToldWithTheReason) {
  folder.write("S/a.txt", "pause,1");
  folder.write("broken", "no program at all");
  fs::permissions(folder.path() / "broken", fs::perms(0755));
  const ProcessEnd end = run({"S", "--test-process", "broken"});
  EXPECT_EQ(end.exitStatus, 4);
  EXPECT_THAT(messages(), ElementsAre("Could not be run: the test process " + (folder.path() / "broken").string() +
                                      " cannot be started: Exec format error"));
}

TEST_F(RunFaults, ATestProcessThatIsNotThereIsTold) {
  folder.write("S/a.txt", "pause,1");
  const ProcessEnd end = run({"S", "--test-process", "nowhere"});
  EXPECT_EQ(end.exitStatus, 4);
  EXPECT_EQ(end.err,
            "quobrak: --test-process is nowhere, but there is no file that could be started: it must be the test "
            "process, quobrakUITests\n");
  EXPECT_FALSE(fs::exists(folder.path() / "out"));
}

TEST_F(RunFaults, AFolderThatHoldsResultsIsRefusedAndLeftAsItIs) {
  folder.write("S/a.txt", "applicationStart,com.example.test");
  EXPECT_EQ(run({"S"}).exitStatus, 0);
  const auto before = snapshot(folder.path());
  const ProcessEnd end = run({"S"});
  EXPECT_EQ(end.exitStatus, 2);
  EXPECT_EQ(end.err,
            "quobrak: the folder out has iterations, junit.xml and results.json in it already, and nothing is "
            "overwritten: choose another folder with --out, or empty this one\n");
  EXPECT_EQ(snapshot(folder.path()), before);
}

TEST_F(RunFaults, AFolderThatAnotherRunUsesIsRefusedAndLeftAsItIs) {
  folder.write("S/a.txt", "applicationStart,com.example.test");
  folder.write("out/.lock", "4711");
  folder.write("out/iterations/001/output.txt", "of the other run");
  const host::FileDescriptor lock(::open((folder.path() / "out/.lock").c_str(), O_RDWR | O_CLOEXEC));
  ASSERT_EQ(::flock(lock.number(), LOCK_EX | LOCK_NB), 0);
  const auto before = snapshot(folder.path());
  const ProcessEnd end = run({"S"});
  EXPECT_EQ(end.exitStatus, 2);
  EXPECT_EQ(
      end.err,
      "quobrak: the folder out is in use by another run, process 4711: wait for its end, or choose another folder "
      "with --out\n");
  EXPECT_EQ(snapshot(folder.path()), before);
}

TEST_F(RunFaults, AFolderThatMayNotBeWrittenIsTold) {
  folder.write("S/a.txt", "applicationStart,com.example.test");
  const std::string standIn = testProcess("exit 0\n");
  fs::permissions(folder.path(), fs::perms(0555));
  start.isUnprivileged = true;
  const ProcessEnd end = run({"S", "--test-process", standIn});
  fs::permissions(folder.path(), fs::perms(0755));
  EXPECT_EQ(end.exitStatus, 4);
  EXPECT_EQ(end.err, "quobrak: the results cannot be written to out: Permission denied\n");
  EXPECT_FALSE(fs::exists(folder.path() / "out"));
}

TEST_F(RunFaults, TheTestProcessHasThisEnvironmentAndNoOther) {
  folder.write("S/a.txt", "pause,1");
  start.environment = {{"PATH", "/usr/bin:/bin"},
                       {"HOME", "/home/somebody"},
                       {"LC_ALL", "C"},
                       {"SECRET", "not for scripts"},
                       {"PRODUCT", "Lamp"},
                       {"iteration", "99"},
                       {"QUOBRAK_TRACE", "elsewhere"},
                       {"QUOBRAK_DOCUMENTS", "elsewhere"},
                       {"QUOBRAK_WEBDRIVER_URL", "http://127.0.0.1:1"}};
  run({"S", "--no-check", "--test-process", "/usr/bin/env", "--suite", "Shop", "--var", "PRODUCT", "--var", "A=1=2"});
  const std::string documents = (folder.path() / "out/iterations/001").string();
  EXPECT_EQ(folder.read("out/iterations/001/output.txt"),
            "A=1=2\nHOME=/home/somebody\nLC_ALL=C\nPATH=/usr/bin:/bin\nPRODUCT=Lamp\nQUOBRAK_CLOCK=virtual\n"
            "QUOBRAK_DOCUMENTS=" +
                documents + "\nQUOBRAK_PHONE=" + phone.path().string() + "\nQUOBRAK_TRACE=" + documents +
                "/trace.jsonl\nQUOBRAK_WEBDRIVER_URL=http://127.0.0.1:1\nclass=dslTestsSuites\niteration=1\n"
                "testFileNumber=1\ntestFilePath1=scripts/001/a.txt\ntestFileSuiteName1=Shop\n");
}

TEST_F(RunFaults, VariablesOfTheRunItselfAreRefused) {
  folder.write("S/a.txt", "pause,1");
  const ProcessEnd end = run({"S", "--var", "iteration=2"});
  EXPECT_EQ(end.exitStatus, 2);
  EXPECT_EQ(end.err,
            "quobrak: --var iteration=2: the variable iteration is set by the run itself: choose another name for "
            "yours\n");
  EXPECT_FALSE(fs::exists(folder.path() / "out"));
}

}  // namespace quobrak::testing
