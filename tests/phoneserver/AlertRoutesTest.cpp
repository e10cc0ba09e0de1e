#include "phoneserver/AlertRoutes.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

constexpr const char* ALERT_AT_LAUNCH =
    R"([{"on": "launch", "do": [{"systemAlert": {"title": "Hello", "message": "", "buttons": ["No", "Yes"]}}]}])";
constexpr const char* PIN = "{'settings': {'defaultActiveApplication': 'com.example.test'}}";

TEST(AlertRoutes, TellAnAlert) {
  TestPhone phone("", ALERT_AT_LAUNCH);
  EXPECT_EQ(phone.get("session/alert/text"), "'Hello'");
  EXPECT_EQ(phone.get("session/wda/alert/buttons"), "['No','Yes']");
  EXPECT_EQ(phone.get("alert/text"), "'Hello'");
}

TEST(AlertRoutes, WithoutASessionDoNotHeedItsPin) {
  TestPhone phone("", ALERT_AT_LAUNCH);
  phone.post("session/appium/settings", PIN);
  EXPECT_EQ(phone.get("session/alert/text").substr(0, 14), "no such alert:");
  EXPECT_EQ(phone.get("session/wda/alert/buttons").substr(0, 14), "no such alert:");
  EXPECT_EQ(phone.post("session/alert/accept").substr(0, 14), "no such alert:");
  EXPECT_EQ(phone.post("session/alert/dismiss").substr(0, 14), "no such alert:");
  EXPECT_EQ(phone.get("alert/text"), "'Hello'");
}

TEST(AlertRoutes, AnswerAnAlert) {
  for (const char* const command : {"alert/accept", "alert/dismiss", "session/alert/accept", "session/alert/dismiss"}) {
    TestPhone phone("", ALERT_AT_LAUNCH);
    EXPECT_EQ(phone.post(command, "{'name': 'Perhaps'}"),
              "invalid element state: the alert has no button \"Perhaps\"; it has \"No\", \"Yes\"");
    EXPECT_EQ(phone.post(command, "{'name': 'No'}"), "null") << command;
    EXPECT_EQ(phone.phone().alert(), nullptr) << command;
    EXPECT_EQ(phone.post(command),
              "no such alert: no alert is up in the application com.example.test, which is looked into");
    phone.phone().launch("com.example.test");
    EXPECT_EQ(phone.post(command), "null") << command;
    EXPECT_EQ(phone.phone().alert(), nullptr) << command;
  }
}

TEST(AlertRoutes, CannotTypeIntoAnAlert) {
  TestPhone phone("", ALERT_AT_LAUNCH);
  EXPECT_EQ(phone.post("session/alert/text", "{'value': 'x'}"),
            "unsupported operation: the alert has no text field to type into");
  EXPECT_EQ(phone.post("session/alert/text"),
            "invalid argument: \"value\" is missing; it must be a text or a list of texts");
}

}  // namespace
}  // namespace quobrak::phoneserver
