#include "phoneserver/DeviceRoutes.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

TEST(DeviceRoutes, GiveThePictureOfTheScreen) {
  TestPhone phone;
  const std::string picture = "'" + phone.served().screenshot() + "'";
  EXPECT_EQ(phone.get("session/screenshot"), picture);
  EXPECT_EQ(phone.get("screenshot"), picture);
}

TEST(DeviceRoutes, TellTheSizeOfTheScreen) {
  TestPhone phone;
  EXPECT_EQ(phone.get("session/window/rect"), "{'height':200,'width':100,'x':0,'y':0}");
  EXPECT_EQ(phone.get("session/window/size"), "{'height':200,'width':100}");
  EXPECT_EQ(phone.get("window/size"), "{'height':200,'width':100}");
}

TEST(DeviceRoutes, GiveTheSourceInEachFormat) {
  TestPhone phone(R"(<XCUIElementTypeButton name="a"/>)");
  EXPECT_NE(phone.get("session/source").find("<XCUIElementTypeButton"), std::string::npos);
  EXPECT_NE(phone.get("session/source?format=xml").find("visible="), std::string::npos);
  EXPECT_EQ(phone.get("session/source?format=xml&excluded_attributes=visible,x").find("visible="), std::string::npos);
  EXPECT_NE(phone.get("source?format=json").find("'type':'Button'"), std::string::npos);
  EXPECT_EQ(phone.get("source?format=yaml"),
            "invalid argument: there is no source format \"yaml\"; there are xml, json and description");
}

TEST(DeviceRoutes, DescribeEachChildOfTheApplication) {
  TestPhone phone;
  EXPECT_EQ(phone.get("session/source?format=description"),
            "'Attributes: Window (Main), 0x100000040, {{0.0, 0.0}, {100.0, 200.0}}\\n"
            "Element subtree:\\n →Window (Main), 0x100000040, {{0.0, 0.0}, {100.0, 200.0}}\\n"
            "Path to element:\\n →Application, 0x100000000, pid: 102, label: 'Test'\\n"
            "  ↳Window (Main), 0x100000040, {{0.0, 0.0}, {100.0, 200.0}}\\n"
            "Query chain:\\n →Find: Application 'com.example.test'\\n"
            "  Output: {\\n    Application, 0x100000000, pid: 102, label: 'Test'\\n  }\\n"
            "  ↪︎Find: Descendants matching type Window\\n"
            "    Output: {\\n      Window (Main), 0x100000040, {{0.0, 0.0}, {100.0, 200.0}}\\n    }\\n"
            "    ↪︎Find: Element at index 0\\n"
            "      Output: {\\n        Window (Main), 0x100000040, {{0.0, 0.0}, {100.0, 200.0}}\\n      }\\n\\n'");
}

TEST(DeviceRoutes, TheSourceOfASessionIsThatOfItsPinnedApplication) {
  TestPhone phone;
  phone.post("session/appium/settings", "{'settings': {'defaultActiveApplication': 'com.apple.springboard'}}");
  EXPECT_NE(phone.get("session/source").find("label=\\' \\'"), phone.get("source").find("label=\\' \\'"));
}

TEST(DeviceRoutes, ThePhoneIsUpright) {
  TestPhone phone;
  EXPECT_EQ(phone.get("session/orientation"), "'PORTRAIT'");
  EXPECT_EQ(phone.post("session/orientation", "{'orientation': 'PORTRAIT'}"), "null");
  EXPECT_EQ(phone.post("session/orientation", "{'orientation': 'LANDSCAPE'}"),
            "unsupported operation: this phone is always upright (PORTRAIT) and cannot be turned to LANDSCAPE");
}

TEST(DeviceRoutes, PressButtons) {
  TestPhone phone;
  EXPECT_EQ(phone.post("session/wda/pressButton", "{'name': 'volumeUp'}"), "null");
  EXPECT_EQ(phone.phone().volume(), 56.25);
  EXPECT_EQ(phone.post("session/wda/pressButton", "{'name': 'volumedown'}"), "null");
  EXPECT_EQ(phone.phone().volume(), 50);
  EXPECT_EQ(phone.post("session/wda/pressButton", "{'name': 'home'}"), "null");
  EXPECT_TRUE(phone.phone().isInFront("com.apple.springboard"));
  EXPECT_EQ(phone.post("session/wda/pressButton", "{'name': 'snooze'}"),
            "unknown error: the phone has no button \"snooze\"; it has home, volumeup and volumedown");
}

TEST(DeviceRoutes, ThePhoneIsNeverLocked) {
  for (const std::string where : {"", "session/"}) {
    TestPhone phone;
    EXPECT_EQ(phone.get(where + "wda/locked"), "false");
    EXPECT_EQ(phone.post(where + "wda/unlock"), "null");
    EXPECT_EQ(phone.post(where + "wda/lock"), "unsupported operation: this phone has no lock screen");
  }
}

TEST(DeviceRoutes, TellWhatThePhoneIs) {
  TestPhone phone(R"(<XCUIElementTypeStatusBar x="0" y="0" width="100" height="20"/>)");
  const std::string screen =
      "{'scale':1.0,'screenSize':{'height':200,'width':100},"
      "'statusBarSize':{'height':20.0,'width':100}}";
  EXPECT_EQ(phone.get("session/wda/screen"), screen);
  EXPECT_EQ(phone.get("wda/screen"), screen);
  EXPECT_EQ(phone.get("session/wda/batteryInfo"), "{'level':1,'state':3}");
  const std::string information =
      "{'currentLocale':'en_US','isSimulator':true,'model':'iPhone','name':'Small phone','timeZone':'UTC',"
      "'userInterfaceIdiom':0,'userInterfaceStyle':'light','uuid':'00000000-0000-0000-0000-000000000000'}";
  EXPECT_EQ(phone.get("session/wda/device/info"), information);
  EXPECT_EQ(phone.get("wda/device/info"), information);
  EXPECT_EQ(phone.get("wda/healthcheck"), "null");
  EXPECT_EQ(phone.get("wda/shutdown"), "null");
}

}  // namespace
}  // namespace quobrak::phoneserver
