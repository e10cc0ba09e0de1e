#include "quobrakUITests/Application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uiautomation/UIAutomationError.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/TestContext.h"
#include "tests/quobrakUITests/RaisedErrors.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using ::testing::ElementsAre;
using ::testing::ThrowsMessage;

TEST(Application, StartLaunchesTheApplicationAndMakesItTheOneThatCommandsActOn) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test"));
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
  EXPECT_TRUE(platform.phone().isInFront("com.example.test"));
}

TEST(Application, StartOfARunningApplicationLaunchesItAgain) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  Application::applicationStart("com.example.test");
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test", "launch: com.example.test"));
}

TEST(Application, StartWithAnEmptyIdentifierSaysThatThereIsNoApplication) {
  testing::TestPlatform platform;
  EXPECT_THAT([] { Application::applicationStart(""); }, testing::raisesNotInitialised());
  EXPECT_THAT(platform.driver().operations, ElementsAre());
}

TEST(Application, StartThatFailsHasChosenTheApplicationAllTheSame) {
  testing::TestPlatform platform;
  EXPECT_THAT([] { Application::applicationStart("com.example.none"); },
              ThrowsMessage<UIAutomationError>("launch of the application \"com.example.none\" on the simulated phone: "
                                               "it is not installed; installed are com.apple.springboard, "
                                               "com.example.test"));
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.none");
}

TEST(Application, KillEndsTheApplicationWhichStaysTheOneThatCommandsActOn) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  Application::applicationKill("com.example.test");
  EXPECT_THAT(platform.driver().operations, ElementsAre("launch: com.example.test", "terminate: com.example.test"));
  EXPECT_EQ(platform.phone().running("com.example.test"), nullptr);
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
}

TEST(Application, CommandAfterAKillFindsNothingOfTheApplication) {
  testing::TestPlatform platform(R"(<XCUIElementTypeButton label="Go" x="0" y="0" width="100" height="20"/>)");
  Application::applicationStart("com.example.test");
  Application::applicationKill("com.example.test");
  EXPECT_THAT([] { Click::clickByText("Go"); }, testing::raisesFdslError("The expected text Go was not found"));
}

TEST(Application, KillOfAnotherApplicationLeavesTheOneThatCommandsActOn) {
  testing::TestPlatform platform;
  Application::applicationStart("com.example.test");
  Application::applicationKill("com.example.none");
  EXPECT_EQ(TestContext::shared().getTestingApp().bundleIdentifier(), "com.example.test");
  EXPECT_NE(platform.phone().running("com.example.test"), nullptr);
}

TEST(Application, KillNeedsNoApplicationToHaveBeenStarted) {
  testing::TestPlatform platform;
  Application::applicationKill("com.example.test");
  EXPECT_THAT(platform.driver().operations, ElementsAre("terminate: com.example.test"));
  EXPECT_THAT([] { TestContext::shared().getTestingApp(); }, testing::raisesNotInitialised());
}

}  // namespace
}  // namespace quobrak
