#include "phoneserver/ApplicationRoutes.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

constexpr const char* TEST_BODY = "{'bundleId': 'com.example.test'}";

TEST(ApplicationRoutes, LaunchAndActivateBringToTheFront) {
  for (const char* const command : {"session/wda/apps/launch", "session/wda/apps/activate"}) {
    TestPhone phone;
    phone.phone().terminate("com.example.test");
    EXPECT_EQ(phone.post(command, TEST_BODY), "null");
    const int started = phone.phone().running("com.example.test")->processIdentifier;
    EXPECT_EQ(phone.post(command, TEST_BODY), "null");
    EXPECT_EQ(phone.phone().running("com.example.test")->processIdentifier, started) << "it is not restarted";
    EXPECT_EQ(phone.post(command, "{'bundleId': 'x'}"),
              "unknown error: the application \"x\" is not installed; installed are com.apple.springboard, "
              "com.example.test");
    EXPECT_EQ(phone.post(command), "invalid argument: \"bundleId\" is missing; it must be a text");
  }
}

TEST(ApplicationRoutes, TerminateTellsWhetherItRan) {
  TestPhone phone;
  EXPECT_EQ(phone.post("session/wda/apps/terminate", TEST_BODY), "true");
  EXPECT_EQ(phone.phone().running("com.example.test"), nullptr);
  EXPECT_EQ(phone.post("session/wda/apps/terminate", TEST_BODY), "false");
  EXPECT_EQ(phone.post("session/wda/apps/terminate", "{'bundleId': 'x'}"), "false");
  EXPECT_EQ(phone.post("session/wda/apps/terminate", "{'bundleId': 'com.apple.springboard'}"), "false");
}

TEST(ApplicationRoutes, StateIsANumber) {
  TestPhone phone;
  EXPECT_EQ(phone.post("session/wda/apps/state", TEST_BODY), "4");
  EXPECT_EQ(phone.post("session/wda/apps/state", "{'bundleId': 'x'}"), "1");
}

TEST(ApplicationRoutes, TellTheActiveApplication) {
  TestPhone phone;
  phone.post("session/appium/settings", "{'settings': {'defaultActiveApplication': 'com.apple.springboard'}}");
  EXPECT_EQ(phone.get("session/wda/activeAppInfo"),
            "{'bundleId':'com.apple.springboard','name':'Home','pid':101,'processArguments':{'args':[],'env':{}}}");
  EXPECT_EQ(phone.get("wda/activeAppInfo"),
            "{'bundleId':'com.example.test','name':'Test','pid':102,'processArguments':{'args':[],'env':{}}}");
  EXPECT_EQ(phone.get("session/wda/apps/list"), "[{'bundleId':'com.apple.springboard','pid':101}]");
}

TEST(ApplicationRoutes, GoHome) {
  for (const char* const command : {"wda/homescreen", "session/wda/homescreen"}) {
    TestPhone phone;
    EXPECT_EQ(phone.post(command), "null");
    EXPECT_TRUE(phone.phone().isInFront("com.apple.springboard")) << command;
  }
}

}  // namespace
}  // namespace quobrak::phoneserver
