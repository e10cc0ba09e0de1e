#include "quobrakUITests/quobrakUITestsLaunchTests.h"

#include <gtest/gtest.h>

namespace quobrak {
namespace {

TEST(quobrakUITestsLaunchTests, RunsForEachConfigurationAndStopsAtTheFirstFailure) {
  static_assert(quobrakUITestsLaunchTests::runsForEachTargetApplicationUIConfiguration);
  quobrakUITestsLaunchTests test;
  EXPECT_TRUE(test.continueAfterFailure());
  test.setUpWithError();
  EXPECT_FALSE(test.continueAfterFailure());
}

}  // namespace
}  // namespace quobrak
