#include "platform/uiautomation/XCUIApplication.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(XCUIApplication, MakingOneLaunchesNothing) {
  TestPlatform platform;
  const XCUIApplication app("com.example.test");
  EXPECT_EQ(app.bundleIdentifier(), "com.example.test");
  EXPECT_EQ(describe(app), R"(the application "com.example.test")");
  EXPECT_FALSE(app.pick());
  EXPECT_THAT(platform.driver().operations, IsEmpty());
  EXPECT_EQ(platform.phone().running("com.example.test"), nullptr);
}

TEST(XCUIApplication, LaunchesAndTerminates) {
  TestPlatform platform;
  const XCUIApplication app("com.example.test");
  app.launch();
  EXPECT_NE(platform.phone().running("com.example.test"), nullptr);
  app.terminate();
  EXPECT_EQ(platform.phone().running("com.example.test"), nullptr);
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test", "terminate: com.example.test"));
}

}  // namespace
}  // namespace quobrak
