#include <gtest/gtest.h>

#include "drivers/simulator/PhoneLoader.h"
#include "tests/drivers/xctest/standins/StandIns.h"

namespace quobrak {
namespace {

TEST(LaunchTestsOfTheBundle, RunForEachConfigurationAndDoNotGoOnAfterAFailure) {
  simulator::Phone phone(simulator::loadPhone(simulator::BuiltinPhoneFiles()), Clock::shared());
  const testing::LaunchTestsSetting setting = testing::setUpLaunchTests(phone);
  EXPECT_FALSE(setting.continuesAfterFailure);
  EXPECT_TRUE(setting.runsForEachConfiguration);
}

}  // namespace
}  // namespace quobrak
