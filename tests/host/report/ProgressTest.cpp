#include "host/report/Progress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "platform/foundation/VirtualClock.h"
#include "tests/host/report/ToldRun.h"

namespace quobrak::host {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

enum class Talk { normal, quiet };

struct Shown {
  std::string out;
  std::string err;
};

Shown shownOn(const Terminal& terminal, Talk talk) {
  std::ostringstream out;
  std::ostringstream err;
  const VirtualClock clock(std::chrono::seconds(1000));
  tellSampleRun(*progressFor(terminal, talk == Talk::quiet, out, err, clock));
  return {.out = out.str(), .err = err.str()};
}

TEST(Progress, IsLiveOnATerminal) {
  const Shown shown = shownOn({.isInteractive = true}, Talk::normal);
  EXPECT_THAT(shown.out, HasSubstr("\x1b[K"));
  EXPECT_EQ(shown.err, "");
}

TEST(Progress, IsPlainElsewhere) {
  const Shown shown = shownOn({.isInteractive = false}, Talk::normal);
  EXPECT_THAT(shown.out, Not(HasSubstr("\x1b")));
  EXPECT_THAT(shown.out, HasSubstr("Iteration 1 of 3: Shop/order passed\n"));
  EXPECT_EQ(shown.err, "");
}

TEST(Progress, IsQuietWhereItIsToBe) {
  for (const bool isInteractive : {false, true}) {
    const Shown shown = shownOn({.isInteractive = isInteractive}, Talk::quiet);
    EXPECT_EQ(shown.out, "");
    EXPECT_THAT(shown.err, StartsWith("Iteration 1 of 3: Shop/login failed: line 3: clickByText,Lamb"));
  }
}

}  // namespace
}  // namespace quobrak::host
