#include "fuzz/support/Require.h"

#include <gtest/gtest.h>

namespace quobrak::fuzz {

TEST(RequireDeathTest, StopsTheProcessWhereAPromiseIsBroken) {
  EXPECT_DEATH(require(1 + 1 == 3, "one and one are three"), "Broken promise: one and one are three");
}

TEST(Require, LetsPassWhatHolds) {
  require(1 + 1 == 2, "one and one are two");
  SUCCEED() << "the process goes on";
}

}  // namespace quobrak::fuzz
