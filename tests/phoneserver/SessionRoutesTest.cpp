#include "phoneserver/SessionRoutes.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

constexpr const char* TEST_APPLICATION = "com.example.test";
constexpr const char* CAPABILITIES_OF_TEST =
    "'capabilities':{'CFBundleIdentifier':'com.example.test','browserName':'Test','device':'iphone','sdkVersion':'17.5'"
    "}";

/// Opens a session with these capabilities, and gives what is answered with the id of the session as "S".
std::string opened(TestPhone& phone, const std::string& capabilities) {
  std::string answered = phone.post("session", "{'capabilities': " + capabilities + "}");
  if (phone.served().session()) {
    std::string& id = phone.served().session()->id;
    if (const auto place = answered.find(id); place != std::string::npos) {
      answered.replace(place, id.size(), "S");
    }
    id = "S";
  }
  return answered;
}

TEST(SessionRoutes, TheStatusSaysThatThePhoneIsReady) {
  TestPhone phone;
  const std::string status =
      "{'build':{'productBundleIdentifier':'simulated','version':'1.0'},'device':'iphone',"
      "'ios':{'ip':'127.0.0.1','simulatorVersion':'17.5'},'message':'The phone is ready to accept commands',"
      "'os':{'name':'iOS','sdkVersion':'17.5','version':'17.5'},'ready':true,'state':'success'}";
  EXPECT_EQ(phone.get("status"), status);
  EXPECT_EQ(phone.get("session/status"), status);
}

TEST(SessionRoutes, ASessionIsOpenedAndTold) {
  TestPhone phone;
  EXPECT_EQ(opened(phone, "{}"), "{" + std::string(CAPABILITIES_OF_TEST) + ",'sessionId':'S'}");
  EXPECT_EQ(phone.get("session/"), "{" + std::string(CAPABILITIES_OF_TEST) + ",'sessionId':'S'}");
}

TEST(SessionRoutes, ANewSessionTakesThePlaceOfTheFormer) {
  TestPhone phone;
  phone.served().session()->elements.idOf(1);
  phone.post("session", "{'capabilities': {}}");
  EXPECT_NE(phone.served().session()->id, "S");
  EXPECT_EQ(phone.get("session/"), "invalid session id: the session S does not exist, or another one took its place");
}

TEST(SessionRoutes, ASessionThatIsClosedIsGone) {
  TestPhone phone;
  EXPECT_EQ(phone.ask("DELETE", "session/"), "null");
  EXPECT_FALSE(phone.served().session().has_value());
  EXPECT_NE(phone.phone().running(TEST_APPLICATION), nullptr);
}

TEST(SessionRoutes, AnApplicationIsRestartedForTheSessionAndEndedWithIt) {
  TestPhone phone;
  const int before = phone.phone().running(TEST_APPLICATION)->processIdentifier;
  opened(phone, "{'alwaysMatch': {'appium:bundleId': 'com.example.test'}}");
  EXPECT_NE(phone.phone().running(TEST_APPLICATION)->processIdentifier, before);
  phone.ask("DELETE", "session/");
  EXPECT_EQ(phone.phone().running(TEST_APPLICATION), nullptr);
}

TEST(SessionRoutes, AnApplicationMayBeLeftAsItIs) {
  TestPhone phone;
  const int before = phone.phone().running(TEST_APPLICATION)->processIdentifier;
  opened(phone,
         "{'firstMatch': [{'bundleId': 'com.example.test', 'forceAppLaunch': false, "
         "'shouldTerminateApp': false}]}");
  EXPECT_EQ(phone.phone().running(TEST_APPLICATION)->processIdentifier, before);
  opened(phone, "{}");
  EXPECT_EQ(phone.phone().running(TEST_APPLICATION)->processIdentifier, before);
}

TEST(SessionRoutes, ANewSessionEndsTheApplicationOfTheFormer) {
  TestPhone phone;
  opened(phone, "{'alwaysMatch': {'bundleId': 'com.example.test'}}");
  opened(phone, "{}");
  EXPECT_EQ(phone.phone().running(TEST_APPLICATION), nullptr);
}

TEST(SessionRoutes, CapabilitiesMayBeSettings) {
  TestPhone phone;
  opened(phone,
         "{'alwaysMatch': {'appium:shouldUseCompactResponses': false}, "
         "'firstMatch': [{'shouldUseCompactResponses': true, 'snapshotMaxDepth': 9}]}");
  EXPECT_FALSE(phone.served().session()->settings.truth("shouldUseCompactResponses"));
  EXPECT_EQ(phone.served().session()->settings.number("snapshotMaxDepth"), 9);
}

TEST(SessionRoutes, CapabilitiesThatCannotBeUsedOpenNoSession) {
  TestPhone phone;
  EXPECT_EQ(phone.post("session"),
            "session not created: \"capabilities\" is missing; it must be an object, such as {\"alwaysMatch\": {}}");
  EXPECT_EQ(opened(phone, "{'alwaysMatch': {'bundleId': 1}}"), "session not created: \"bundleId\" must be a text");
  EXPECT_EQ(opened(phone, "{'alwaysMatch': {'snapshotMaxDepth': 'x'}}"),
            "session not created: the setting \"snapshotMaxDepth\" must be a number");
  EXPECT_EQ(opened(phone, "{'firstMatch': [1]}"), "session not created: \"firstMatch\" must be an object");
  EXPECT_EQ(phone.get("session/orientation"), "'PORTRAIT'") << "the former session is still open";
  EXPECT_EQ(opened(phone, "{'alwaysMatch': {'bundleId': 'x'}}"),
            "session not created: the application \"x\" is not installed; installed are com.apple.springboard, "
            "com.example.test");
}

TEST(SessionRoutes, SettingsAreToldAndChanged) {
  TestPhone phone;
  const std::string before = phone.get("session/appium/settings");
  EXPECT_NE(before.find("'snapshotMaxDepth':50"), std::string::npos) << before;
  const std::string after = phone.post("session/appium/settings", "{'settings': {'snapshotMaxDepth': 9}}");
  EXPECT_NE(after.find("'snapshotMaxDepth':9"), std::string::npos) << after;
  EXPECT_EQ(phone.get("session/appium/settings"), after);
}

TEST(SessionRoutes, SettingsThatCannotBeUsedAreRefused) {
  TestPhone phone;
  EXPECT_EQ(phone.post("session/appium/settings"), "invalid argument: \"settings\" is missing; it must be an object");
  EXPECT_EQ(phone.post("session/appium/settings", "{'settings': {'autoClickAlertSelector': 'x'}}").substr(0, 17),
            "invalid selector:");
  EXPECT_EQ(phone.post("session/appium/settings", "{'settings': {'useFirstMatch': 'x'}}"),
            "invalid argument: the setting \"useFirstMatch\" must be true or false");
}

TEST(SessionRoutes, TimeoutsAreTakenAndMeanNothing) {
  TestPhone phone;
  EXPECT_EQ(phone.post("session/timeouts", "{'implicit': 1000}"), "null");
}

}  // namespace
}  // namespace quobrak::phoneserver
