#include "host/run/ChildProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "host/Subcommand.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using testing::TemporaryFolder;

class ChildProcesses : public ::testing::Test {
 protected:
  ChildStart startOf(const std::string& shellScript) const {
    folder.write("program", "#!/bin/sh\n" + shellScript);
    std::filesystem::permissions(folder.path() / "program", std::filesystem::perms(0755));
    return {.executable = folder.path() / "program", .environment = {}, .output = folder.path() / "output"};
  }

  /// Waits for the end as a user of the class does.
  static ChildEnd endOf(ChildProcess& child) {
    pollfd descriptor{.fd = child.descriptor(), .events = POLLIN, .revents = 0};
    constexpr int FOREVER = -1;
    EXPECT_EQ(::poll(&descriptor, 1, FOREVER), 1);
    return child.waitForEnd();
  }

  const TemporaryFolder folder;
};

TEST_F(ChildProcesses, EndWithAStatus) {
  ChildProcess child(startOf("exit 7\n"));
  EXPECT_EQ(endOf(child), (ChildEnd{.exitStatus = 7, .signal = {}}));
}

TEST_F(ChildProcesses, EndBySignals) {
  ChildProcess child(startOf("kill -SEGV $$\n"));
  EXPECT_EQ(endOf(child), (ChildEnd{.exitStatus = {}, .signal = SIGSEGV}));
}

TEST_F(ChildProcesses, EndWithAStatusAlsoWhereEndsOfChildrenWereIgnored) {
  std::signal(SIGCHLD, SIG_IGN);
  ChildProcess child(startOf("exit 7\n"));
  EXPECT_EQ(endOf(child), (ChildEnd{.exitStatus = 7, .signal = {}}));
}

TEST_F(ChildProcesses, PrintIntoAFile) {
  ChildProcess child(startOf("echo one\necho two >&2\necho three\n"));
  endOf(child);
  EXPECT_EQ(folder.read("output"), "one\ntwo\nthree\n");
}

TEST_F(ChildProcesses, HaveNothingToRead) {
  ChildProcess child(startOf("cat\nexit 3\n"));
  EXPECT_EQ(endOf(child).exitStatus, 3);
  EXPECT_EQ(folder.read("output"), "");
}

TEST_F(ChildProcesses, HaveTheEnvironmentThatTheyAreGiven) {
  ChildProcess child(
      {.executable = "/usr/bin/env", .environment = {"B=2=3", "A=1"}, .output = folder.path() / "output"});
  endOf(child);
  EXPECT_EQ(folder.read("output"), "B=2=3\nA=1\n");
}

TEST_F(ChildProcesses, HaveNoDescriptorOfOurs) {
  const int ours = ::dup(STDOUT_FILENO);
  ChildProcess child(startOf("test ! -e /proc/self/fd/" + std::to_string(ours) + "\n"));
  EXPECT_EQ(endOf(child).exitStatus, 0);
  ::close(ours);
}

TEST_F(ChildProcesses, TakeSignalsThatAreBlockedHere) {
  sigset_t all{};
  ::sigfillset(&all);
  sigset_t former{};
  ::pthread_sigmask(SIG_BLOCK, &all, &former);
  ChildProcess child(startOf("kill -TERM $$\nexit 1\n"));
  ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
  EXPECT_EQ(endOf(child).signal, SIGTERM);
}

TEST_F(ChildProcesses, AreSentSignalsWithAllThatTheyStarted) {
  ChildProcess child(startOf("sleep 60 &\nwait\n"));
  child.send(SIGKILL);
  EXPECT_EQ(endOf(child).signal, SIGKILL);
}

TEST_F(ChildProcesses, AreKilledWhenNobodyWaitsForThem) {
  { const ChildProcess child(startOf("exec sleep 60\n")); }
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(ChildProcesses, ThatCannotBeStartedAreToldWithTheReason) {
  try {
    const ChildProcess child({.executable = "/nowhere", .environment = {}, .output = folder.path() / "output"});
    FAIL() << "it was started";
  } catch (const EnvironmentError& error) {
    EXPECT_STREQ(error.what(), "the test process /nowhere cannot be started: No such file or directory");
  }
}

TEST_F(ChildProcesses, AreNotStartedWhereTheirOutputCannotBeKept) {
  ChildStart start = startOf("exit 0\n");
  start.output = folder.path() / "nowhere/output";
  try {
    const ChildProcess child(start);
    FAIL() << "it was started";
  } catch (const EnvironmentError& error) {
    EXPECT_EQ(error.what(), start.output.string() + " cannot be written: No such file or directory");
  }
}

}  // namespace
}  // namespace quobrak::host
