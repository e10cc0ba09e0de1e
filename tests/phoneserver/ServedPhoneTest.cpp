#include "phoneserver/ServedPhone.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;
using Binding = ServedPhone::Binding;

constexpr const char* HOME = "com.apple.springboard";
constexpr const char* TEST_APPLICATION = "com.example.test";
constexpr const char* ALERT_AT_LAUNCH =
    R"([{"on": "launch", "do": [{"systemAlert": {"title": "Hello", "message": "", "buttons": ["No", "Yes"]}}]}])";

TEST(ServedPhone, CountsTheStatesOfApplications) {
  TestPhone phone;
  EXPECT_EQ(phone.served().stateOf(TEST_APPLICATION), 4);
  EXPECT_EQ(phone.served().stateOf(HOME), 4);
  phone.phone().pressHome();
  EXPECT_EQ(phone.served().stateOf(TEST_APPLICATION), 3);
  phone.phone().terminate(TEST_APPLICATION);
  EXPECT_EQ(phone.served().stateOf(TEST_APPLICATION), 1);
  EXPECT_EQ(phone.served().stateOf("not.installed"), 1);
}

TEST(ServedPhone, LooksIntoTheApplicationInFrontUnlessAnAlertOfTheSystemIsUp) {
  TestPhone phone;
  EXPECT_EQ(phone.served().activeApplication(), TEST_APPLICATION);
  phone.phone().pressHome();
  EXPECT_EQ(phone.served().activeApplication(), HOME);
  TestPhone alarmed("", ALERT_AT_LAUNCH);
  EXPECT_EQ(alarmed.served().activeApplication(), HOME);
}

TEST(ServedPhone, LooksIntoThePinnedApplicationWhereItIsInFront) {
  TestPhone phone("", ALERT_AT_LAUNCH);
  phone.served().session()->settings.update({{"defaultActiveApplication", TEST_APPLICATION}});
  EXPECT_EQ(phone.served().activeApplication(), TEST_APPLICATION);
  EXPECT_EQ(phone.served().activeApplication(Binding::none), HOME);
  EXPECT_EQ(&phone.served().activeScreen(), &phone.served().screenOf(TEST_APPLICATION));
  phone.phone().pressHome();
  EXPECT_EQ(phone.served().activeApplication(), HOME);
  phone.phone().launch(TEST_APPLICATION);
  phone.served().session()->settings.update({{"defaultActiveApplication", HOME}});
  EXPECT_EQ(phone.served().activeApplication(), HOME);
}

TEST(ServedPhone, LooksIntoTheSessionsApplicationAndAtAlertsWhereTheyAreRespected) {
  TestPhone phone("", ALERT_AT_LAUNCH);
  phone.served().session()->application = TEST_APPLICATION;
  EXPECT_EQ(phone.served().activeApplication(), TEST_APPLICATION);
  phone.served().session()->settings.update({{"respectSystemAlerts", true}});
  EXPECT_EQ(phone.served().activeApplication(), HOME);
}

TEST(ServedPhone, FindsElementsOfAllApplicationsByTheirNumbers) {
  TestPhone phone(R"(<XCUIElementTypeButton name="a"/>)");
  const simulator::Element& element = phone.element("a");
  phone.phone().pressHome();
  EXPECT_EQ(phone.served().elementNumbered(element.number), &element);
  EXPECT_EQ(phone.served().elementNumbered(0), nullptr);
  const simulator::Element& home = phone.served().screenOf(HOME);
  EXPECT_EQ(phone.served().elementNumbered(home.number), &home);
}

TEST(ServedPhone, AnElementIsVisibleWhereAPartOfItIsOnTheScreen) {
  TestPhone phone(R"(<XCUIElementTypeButton name="in" x="0" y="0" width="10" height="10"/>
                     <XCUIElementTypeButton name="out" x="100" y="0" width="10" height="10"/>
                     <XCUIElementTypeButton name="empty" x="0" y="0" width="0" height="10"/>)");
  EXPECT_TRUE(phone.served().isVisible(phone.element("in")));
  EXPECT_FALSE(phone.served().isVisible(phone.element("out")));
  EXPECT_FALSE(phone.served().isVisible(phone.element("empty")));
  const simulator::Element& element = phone.element("in");
  phone.phone().pressHome();
  EXPECT_FALSE(phone.served().isVisible(element));
  EXPECT_FALSE(phone.served().isHittable(element));
}

TEST(ServedPhone, AnElementIsHittableWhereNothingOfItsApplicationCoversIt) {
  TestPhone phone(R"(<XCUIElementTypeButton name="below" x="0" y="0" width="10" height="10"/>
                     <XCUIElementTypeButton name="above" x="0" y="0" width="10" height="10"/>)",
                  ALERT_AT_LAUNCH);
  phone.served().session()->settings.update({{"defaultActiveApplication", TEST_APPLICATION}});
  EXPECT_FALSE(phone.served().isHittable(phone.element("below")));
  EXPECT_TRUE(phone.served().isVisible(phone.element("below")));
  EXPECT_TRUE(phone.served().isHittable(phone.element("above")));
  phone.served().session()->settings.update({{"defaultActiveApplication", HOME}});
  EXPECT_TRUE(phone.served().isHittable(phone.element("Yes")));
}

TEST(ServedPhone, PaintsAChangedScreenAnewAndNoOther) {
  TestPhone phone(R"(<XCUIElementTypeTextField name="f" x="0" y="0" width="90" height="30"/>)");
  const std::string before = phone.served().screenshot();
  EXPECT_EQ(before.substr(0, 8), "iVBORw0K");
  const std::string* const kept = &phone.served().screenshot();
  EXPECT_EQ(*kept, before);
  phone.phone().touch({10, 10}, Seconds::zero());
  phone.phone().type(phone.element("f"), "text");
  EXPECT_NE(phone.served().screenshot(), before);
}

}  // namespace
}  // namespace quobrak::phoneserver
