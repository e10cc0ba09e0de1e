#include "quobrakUITests/Device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "platform/uiautomation/UIDriver.h"
#include "tests/quobrakUITests/ForgettingDriver.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::Eq;
using ::testing::IsEmpty;

/// Keeps what it was asked to sleep.
class SleepRecorder final : public Clock {
 public:
  explicit SleepRecorder(std::vector<std::uint32_t>& sleeps) : sleeps_(sleeps) {}

  Seconds timeIntervalSince1970() const override { return Seconds::zero(); }
  TimePoint now() const override { return {}; }
  void usleep(std::uint32_t microseconds) override { sleeps_.push_back(microseconds); }

 private:
  std::vector<std::uint32_t>& sleeps_;
};

TEST(Device, PauseIsOneSleepInMicroseconds) {
  testing::TestPlatform platform;
  std::vector<std::uint32_t> sleeps;
  Clock::install(std::make_unique<SleepRecorder>(sleeps));
  Device::pause(0);
  Device::pause(1);
  Device::pause(4294967);
  EXPECT_THAT(sleeps, ElementsAre(0U, 1000U, 4294967000U));
}

TEST(Device, PauseMovesVirtualTime) {
  testing::TestPlatform platform;
  Device::pause(10000);
  EXPECT_EQ(platform.elapsed(), std::chrono::seconds(10));
  EXPECT_THAT(platform.driver().operations, IsEmpty());
}

TEST(Device, PauseEndsWhatALookUpMayServe) {
  testing::TestPlatform platform;
  auto installed = std::make_unique<testing::ForgettingDriver>();
  const testing::ForgettingDriver& driver = *installed;
  UIDriver::install(std::move(installed));
  Device::pause(1);
  EXPECT_EQ(driver.timesForgotten, 1);
}

TEST(Device, PauseThatNoSleepCanTakeIsFatal) {
  testing::TestPlatform platform;
  for (const std::int64_t pause : {std::int64_t{4294968}, std::int64_t{-1}, std::int64_t{9223372036854775}}) {
    EXPECT_DEATH(Device::pause(pause), Eq("Fatal error: The pause of " + std::to_string(pause) +
                                          " ms cannot be slept in one piece: it must lie between 0 and 4294967 ms\n"));
  }
}

TEST(Device, PauseThatOverflowsIsFatal) {
  testing::TestPlatform platform;
  for (const std::int64_t pause : {std::int64_t{9223372036854776}, std::numeric_limits<std::int64_t>::max(),
                                   std::numeric_limits<std::int64_t>::min()}) {
    EXPECT_DEATH(Device::pause(pause), Eq("Fatal error: The pause in microseconds overflows\n"));
  }
}

TEST(Device, EachButtonIsPressedOnceAndWithoutAWait) {
  testing::TestPlatform platform;
  Device::pressHome();
  EXPECT_THAT(platform.driver().operations, ElementsAre("pressButton: home"));
  Device::pressVolumeUp();
  EXPECT_EQ(platform.phone().volume(), 56.25);
  Device::pressVolumeDown();
  Device::pressVolumeDown();
  EXPECT_EQ(platform.phone().volume(), 43.75);
  EXPECT_THAT(platform.driver().operations, ElementsAre("pressButton: home", "pressButton: volumeUp",
                                                        "pressButton: volumeDown", "pressButton: volumeDown"));
  EXPECT_EQ(platform.elapsed(), std::chrono::seconds(0));
}

}  // namespace
}  // namespace quobrak
