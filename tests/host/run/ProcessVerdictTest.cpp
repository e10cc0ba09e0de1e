#include "host/run/ProcessVerdict.h"

#include <gtest/gtest.h>

#include <csignal>

namespace quobrak::host {
namespace {

const ProcessPlace BETWEEN_SCRIPTS;
const ProcessPlace IN_A_SCRIPT{.script = "Shop/order", .line = std::nullopt};
const ProcessPlace AT_A_LINE{.script = "Shop/order", .line = RunLine{.number = 3, .text = "pause,9"}};

ProcessEnd exited(int status, std::optional<int> endSignal = std::nullopt) {
  return {.how = {.exitStatus = status, .signal = {}}, .endSignal = endSignal, .wallTime = {}};
}

ProcessEnd killed(int signal, std::optional<int> endSignal = std::nullopt) {
  return {.how = {.exitStatus = {}, .signal = signal}, .endSignal = endSignal, .wallTime = {}};
}

struct Case {
  ProcessEnd end;
  std::string_view output;
  ProcessPlace place;
  IterationOutcome outcome;
  std::string message;
  std::string cause;
};

TEST(ProcessVerdict, IsGivenByHowTheProcessEnded) {
  const std::vector<Case> cases{
      {exited(0), "Test Case passed", BETWEEN_SCRIPTS, IterationOutcome::finished, "", ""},
      {exited(1),
       "Test Case '-[quobrakUITests testMain]' started.\nerror: -[quobrakUITests testMain] : failed: caught error: "
       "\"The "
       "file \"a\" is missing\"\nTest Case '-[quobrakUITests testMain]' failed (0.000 seconds).\n",
       AT_A_LINE, IterationOutcome::failed, "The test process ended with an error: The file \"a\" is missing",
       "The test process ended with an error: The file \"a\" is missing"},
      {exited(1), "", BETWEEN_SCRIPTS, IterationOutcome::failed,
       "The test process ended with an error, and did not say why",
       "The test process ended with an error, and did not say why"},
      {exited(2), "warning: x\nconfiguration error: A is 1\nB is 2\n", BETWEEN_SCRIPTS, IterationOutcome::misconfigured,
       "The test process refused its configuration: A is 1; B is 2",
       "The test process refused its configuration: A is 1; B is 2"},
      {exited(7), "", AT_A_LINE, IterationOutcome::failed,
       "The test process ended with the unknown exit status 7 at line 3 of Shop/order: pause,9",
       "The test process ended with the unknown exit status 7"},
      {killed(SIGABRT), "Test Case started.\nFatal error: too long (line 3: pause,9)\n", AT_A_LINE,
       IterationOutcome::aborted, "The test process stopped itself at line 3 of Shop/order: pause,9", "too long"},
      {killed(SIGABRT), "Fatal error: no scripts\n", BETWEEN_SCRIPTS, IterationOutcome::aborted,
       "The test process stopped itself: no scripts", "no scripts"},
      {killed(SIGABRT), "it says Fatal error: within a line\n", IN_A_SCRIPT, IterationOutcome::aborted,
       "The test process was ended by SIGABRT (Aborted) in Shop/order",
       "The test process was ended by SIGABRT (Aborted)"},
      {killed(SIGKILL), "Fatal error: of something else\n", AT_A_LINE, IterationOutcome::aborted,
       "The test process was ended by SIGKILL (Killed) at line 3 of Shop/order: pause,9",
       "The test process was ended by SIGKILL (Killed)"},
      {killed(SIGSEGV), "", BETWEEN_SCRIPTS, IterationOutcome::aborted,
       "The test process was ended by SIGSEGV (Segmentation fault)",
       "The test process was ended by SIGSEGV (Segmentation fault)"},
      {killed(SIGRTMAX), "", BETWEEN_SCRIPTS, IterationOutcome::aborted,
       "The test process was ended by signal " + std::to_string(SIGRTMAX),
       "The test process was ended by signal " + std::to_string(SIGRTMAX)},
      // As a shell around it tells of a signal.
      {exited(128 + SIGABRT), "Fatal error: too long\n", IN_A_SCRIPT, IterationOutcome::aborted,
       "The test process stopped itself in Shop/order", "too long"},
      {killed(SIGTERM, SIGINT), "", AT_A_LINE, IterationOutcome::interrupted,
       "Ended by Ctrl-C at line 3 of Shop/order: pause,9", "Ended by Ctrl-C"},
      {killed(SIGKILL, SIGTERM), "", IN_A_SCRIPT, IterationOutcome::interrupted,
       "Ended by SIGTERM (Terminated) in Shop/order", "Ended by SIGTERM (Terminated)"},
      {exited(128 + SIGTERM, SIGHUP), "", BETWEEN_SCRIPTS, IterationOutcome::interrupted, "Ended by SIGHUP (Hangup)",
       "Ended by SIGHUP (Hangup)"},
      // It was through before it heard of the signal.
      {exited(0, SIGINT), "", BETWEEN_SCRIPTS, IterationOutcome::finished, "", ""},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.message);
    const ProcessVerdict verdict = verdictOf(expected.end, expected.output, expected.place);
    EXPECT_EQ(verdict.outcome, expected.outcome);
    EXPECT_EQ(verdict.message, expected.message);
    EXPECT_EQ(verdict.cause, expected.cause);
  }
}

TEST(ProcessVerdict, FindsTheLastErrorThatWasCaught) {
  EXPECT_EQ(
      caughtErrorIn("error: -[quobrakUITests testMain] : failed: caught error: \"one\ntwo\"\nTest Case 'x' failed"),
      "one; two");
  EXPECT_EQ(caughtErrorIn("error: -[quobrakUITests testMain] : failed: caught error: \"cut o"), "cut o");
  EXPECT_EQ(caughtErrorIn("nothing"), "");
}

}  // namespace
}  // namespace quobrak::host
