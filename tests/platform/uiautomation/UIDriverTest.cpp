#include "platform/uiautomation/UIDriver.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

TEST(UIDriver, TheInstalledDriverIsTheSharedOne) {
  quobrak::testing::TestPlatform platform;
  EXPECT_EQ(&UIDriver::shared(), &platform.driver());
}

TEST(UIDriverDeathTest, WhereNoneIsInstalledItIsFatal) {
  EXPECT_DEATH(UIDriver::shared(), "^Fatal error: No UI driver is installed\n$");
}

TEST(UIDriverDeathTest, WhereItWasTakenOutAgainItIsFatal) {
  std::optional<quobrak::testing::TestPlatform> platform(std::in_place);
  platform.reset();
  EXPECT_DEATH(UIDriver::shared(), "^Fatal error: No UI driver is installed\n$");
}

}  // namespace
}  // namespace quobrak
