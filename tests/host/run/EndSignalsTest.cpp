#include "host/run/EndSignals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/poll.h>

#include <array>
#include <csignal>

#include "host/run/FileDescriptor.h"
#include "tests/host/run/DefaultSignals.h"

namespace quobrak::host {
namespace {

using ::testing::ExitedWithCode;
using ::testing::KilledBySignal;

class TheEndSignals : public ::testing::Test {
 protected:
  const DefaultSignals defaults;
};

bool canBeRead(int number) {
  pollfd descriptor{.fd = number, .events = POLLIN, .revents = 0};
  return ::poll(&descriptor, 1, 0) == 1;
}

TEST_F(TheEndSignals, AreHeldBackAndTakenOneByOne) {
  EndSignals signals;
  EXPECT_FALSE(canBeRead(signals.descriptor()));
  EXPECT_EQ(signals.take(), std::nullopt);
  std::raise(SIGINT);
  std::raise(SIGTERM);
  EXPECT_TRUE(canBeRead(signals.descriptor()));
  EXPECT_EQ(signals.take(), SIGINT);
  EXPECT_EQ(signals.take(), SIGTERM);
  EXPECT_EQ(signals.take(), std::nullopt);
}

TEST_F(TheEndSignals, AHangUpIsOne) {
  EndSignals signals;
  std::raise(SIGHUP);
  EXPECT_EQ(signals.take(), SIGHUP);
}

TEST_F(TheEndSignals, LeaveAloneWhatWasIgnoredBefore) {
  std::signal(SIGHUP, SIG_IGN);
  EndSignals signals;
  std::raise(SIGHUP);
  EXPECT_EQ(signals.take(), std::nullopt);
}

TEST_F(TheEndSignals, DoWhatTheyDidBeforeWhenTheyAreNoLongerHeld) {
  const auto endLate = [] {
    { const EndSignals signals; }
    std::raise(SIGTERM);
  };
  EXPECT_EXIT(endLate(), KilledBySignal(SIGTERM), "");
}

TEST_F(TheEndSignals, AReaderThatGoesAwayEndsNothing) {
  const auto writeToNobody = [] {
    const EndSignals signals;
    std::array<int, 2> ends{};
    if (::pipe(ends.data()) == 0) {
      ::close(ends[0]);
      std::exit(::write(ends[1], "x", 1) < 0 ? 0 : 1);
    }
  };
  EXPECT_EXIT(writeToNobody(), ExitedWithCode(0), "");
}

}  // namespace
}  // namespace quobrak::host
