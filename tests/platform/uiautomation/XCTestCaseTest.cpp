#include "platform/uiautomation/XCTestCase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uiautomation/XCUIApplication.h"
#include "tests/support/TestPlatform.h"

namespace quobrak {
namespace {

using quobrak::testing::TestPlatform;
using ::testing::ElementsAre;

constexpr const char* ASKING = R"([{"on": "launch", "do": [{"askPermission": "camera"}]}])";
constexpr const char* BUTTON = R"(<XCUIElementTypeButton name="ok" label="OK" x="0" y="0" width="50" height="20"/>)";

TEST(XCTestCase, GoesOnAfterAFailureUntilToldOtherwise) {
  XCTestCase test;
  EXPECT_TRUE(test.continueAfterFailure());
  test.setContinueAfterFailure(false);
  EXPECT_FALSE(test.continueAfterFailure());
}

TEST(XCTestCase, ARegisteredHandlerIsAskedUntilItIsRemoved) {
  TestPlatform platform(BUTTON, ASKING);
  XCTestCase test;
  int asked = 0;
  const auto token = test.addUIInterruptionMonitor("permissions", [&asked](const XCUIElement&) {
    ++asked;
    return false;
  });
  const XCUIApplication app("com.example.test");
  app.launch();
  app.buttons().firstMatch().tap();
  EXPECT_EQ(asked, 1);
  test.removeUIInterruptionMonitor(token);
  app.buttons().firstMatch().tap();
  EXPECT_EQ(asked, 1);
  EXPECT_THAT(
      platform.driver().operations,
      ElementsAre("addInterruptionMonitor: permissions", "launch: com.example.test",
                  R"(tap: the element (first) of the Button descendants of the application "com.example.test")",
                  "removeInterruptionMonitor",
                  R"(tap: the element (first) of the Button descendants of the application "com.example.test")"));
}

}  // namespace
}  // namespace quobrak
