#include "host/run/Supervisor.h"

#include <gtest/gtest.h>

#include <csignal>

#include "host/Subcommand.h"
#include "tests/host/run/DefaultSignals.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using namespace std::chrono_literals;
using testing::TemporaryFolder;

class ASupervisor : public ::testing::Test {
 protected:
  ChildStart startOf(const std::string& shellScript) const {
    folder.write("program", "#!/bin/sh\n" + shellScript);
    std::filesystem::permissions(folder.path() / "program", std::filesystem::perms(0755));
    return {.executable = folder.path() / "program", .environment = {}, .output = folder.path() / "output"};
  }

  const TemporaryFolder folder;
  const DefaultSignals defaults;
  EndSignals signals;
};

const Supervisor::Tick NOTHING = [] {};

TEST_F(ASupervisor, WaitsForTheEndOfAProcess) {
  const ProcessEnd end = ProcessSupervisor(signals).run(startOf("exit 3\n"), NOTHING);
  EXPECT_EQ(end.how, (ChildEnd{.exitStatus = 3, .signal = {}}));
  EXPECT_EQ(end.endSignal, std::nullopt);
  EXPECT_GT(end.wallTime, 0ns);
}

TEST_F(ASupervisor, TellsOfTheTimeThatPasses) {
  // The process ends when it is told that time has passed.
  ChildStart start = startOf("while [ ! -e '" + (folder.path() / "told").string() + "' ]; do sleep 0.01; done\n");
  start.environment = {"PATH=/usr/bin:/bin"};
  int ticks = 0;
  ProcessSupervisor(signals).run(start, [&] {
    ++ticks;
    folder.write("told", "");
  });
  EXPECT_GE(ticks, 1);
}

TEST_F(ASupervisor, PassesOnThatItIsToldToEnd) {
  std::raise(SIGINT);
  const ProcessEnd end = ProcessSupervisor(signals).run(startOf("exec sleep 600\n"), NOTHING);
  EXPECT_EQ(end.how, (ChildEnd{.exitStatus = {}, .signal = SIGTERM}));
  EXPECT_EQ(end.endSignal, SIGINT);
}

TEST_F(ASupervisor, KillsAProcessThatDoesNotEndWhenItIsToldTo) {
  const ProcessEnd end =
      ProcessSupervisor(signals, 0ms).run(startOf("trap '' TERM\nkill -TERM $PPID\nexec sleep 600\n"), NOTHING);
  EXPECT_EQ(end.how.signal, SIGKILL);
  EXPECT_EQ(end.endSignal, SIGTERM);
}

TEST_F(ASupervisor, KillsAProcessAtOnceWhenItIsToldToEndTwice) {
  const ProcessEnd end =
      ProcessSupervisor(signals, 24h)
          .run(startOf("trap 'kill -TERM $PPID' TERM\nkill -INT $PPID\nwhile :; do :; done\n"), NOTHING);
  EXPECT_EQ(end.how.signal, SIGKILL);
  EXPECT_EQ(end.endSignal, SIGINT);
}

TEST_F(ASupervisor, ContinuesAStoppedProcessThatIsToEnd) {
  const ProcessEnd end =
      ProcessSupervisor(signals, 24h).run(startOf("kill -INT $PPID\nkill -STOP $$\nexit 1\n"), NOTHING);
  EXPECT_EQ(end.how.signal, SIGTERM);
  EXPECT_EQ(end.endSignal, SIGINT);
}

TEST_F(ASupervisor, TellsWhatCannotBeStarted) {
  EXPECT_THROW(
      ProcessSupervisor(signals).run({.executable = "/nowhere", .environment = {}, .output = "/dev/null/x"}, NOTHING),
      EnvironmentError);
}

TEST_F(ASupervisor, RestsAsLongAsItIsTold) {
  EXPECT_EQ(ProcessSupervisor(signals).rest(0ms, NOTHING), std::nullopt);
  EXPECT_EQ(ProcessSupervisor(signals).rest(1ms, NOTHING), std::nullopt);
}

TEST_F(ASupervisor, StopsRestingWhenItIsToldToEnd) {
  std::raise(SIGTERM);
  EXPECT_EQ(ProcessSupervisor(signals).rest(24h, NOTHING), SIGTERM);
  // Also where there is no rest to be taken.
  std::raise(SIGINT);
  EXPECT_EQ(ProcessSupervisor(signals).rest(0ms, NOTHING), SIGINT);
}

TEST_F(ASupervisor, TellsOfTheTimeThatPassesWhileItRests) {
  // The first time ends the rest.
  int ticks = 0;
  EXPECT_EQ(ProcessSupervisor(signals).rest(24h,
                                            [&] {
                                              ++ticks;
                                              std::raise(SIGINT);
                                            }),
            SIGINT);
  EXPECT_EQ(ticks, 1);
}

}  // namespace
}  // namespace quobrak::host
