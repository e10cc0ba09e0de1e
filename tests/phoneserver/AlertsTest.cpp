#include "phoneserver/Alerts.h"

#include <gmock/gmock.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;
using quobrak::testing::TestPhone;
using ::testing::ElementsAre;
using Binding = ServedPhone::Binding;

constexpr const char* ALERT_AT_LAUNCH =
    R"([{"on": "launch", "do": [{"systemAlert": {"title": "Hello", "message": "World", "buttons": ["No", "Maybe", "Yes"]}}]}])";

Alert theAlert(TestPhone& phone) {
  return Alert::required(phone.served(), Binding::toSession);
}

TEST(Alerts, TellTheirTextsAndButtons) {
  TestPhone phone("", ALERT_AT_LAUNCH);
  EXPECT_EQ(theAlert(phone).text(), "Hello\nWorld");
  EXPECT_THAT(theAlert(phone).buttonLabels(), ElementsAre("No", "Maybe", "Yes"));
}

TEST(Alerts, ThatAreNotUpAreAnError) {
  TestPhone phone;
  EXPECT_EQ(errorOf([&] { theAlert(phone); }),
            "no such alert: no alert is up in the application com.example.test, which is looked into");
}

TEST(Alerts, OfTheSystemAreNotSeenInAPinnedApplicationButWithoutASession) {
  TestPhone phone("", ALERT_AT_LAUNCH);
  phone.served().session()->settings.update({{"defaultActiveApplication", "com.example.test"}});
  EXPECT_EQ(errorOf([&] { theAlert(phone); }),
            "no such alert: no alert is up in the application com.example.test, which is looked into");
  EXPECT_EQ(Alert::required(phone.served(), Binding::none).text(), "Hello\nWorld");
}

TEST(Alerts, AreAnsweredByAButton) {
  TestPhone phone("", ALERT_AT_LAUNCH);
  EXPECT_EQ(errorOf([&] { theAlert(phone).press("no"); }),
            "invalid element state: the alert has no button \"no\"; it has \"No\", \"Maybe\", \"Yes\"");
  EXPECT_NE(phone.phone().alert(), nullptr);
  theAlert(phone).press("Maybe");
  EXPECT_EQ(phone.phone().alert(), nullptr);
}

/// A sheet of the application, whose buttons do what a touch on a field does: they take the focus.
constexpr const char* PAGE_WITH_SHEET = R"(
  <XCUIElementTypeSheet name="Sheet" label="Sheet" x="0" y="0" width="100" height="100">
    <XCUIElementTypeButton name="First" label="First" x="0" y="0" width="100" height="20"/>
    <XCUIElementTypeButton name="Middle" label="Middle" x="0" y="20" width="100" height="20"/>
    <XCUIElementTypeButton name="Last" label="Last" x="0" y="40" width="100" height="20"/>
  </XCUIElementTypeSheet>)";
constexpr const char* TELL_WHICH = R"([
  {"on": "tap", "element": "label == \"First\"", "do": [{"systemAlert": {"title": "1", "message": "", "buttons": ["OK"]}}]},
  {"on": "tap", "element": "label == \"Middle\"", "do": [{"systemAlert": {"title": "2", "message": "", "buttons": ["OK"]}}]},
  {"on": "tap", "element": "label == \"Last\"", "do": [{"systemAlert": {"title": "3", "message": "", "buttons": ["OK"]}}]}])";

TEST(Alerts, ASheetIsAcceptedByItsFirstButtonAndDismissedByItsLast) {
  TestPhone accepted(PAGE_WITH_SHEET, TELL_WHICH);
  EXPECT_EQ(theAlert(accepted).text(), "Sheet");
  theAlert(accepted).accept();
  EXPECT_EQ(theAlert(accepted).text(), "1");
  TestPhone dismissed(PAGE_WITH_SHEET, TELL_WHICH);
  theAlert(dismissed).dismiss();
  EXPECT_EQ(theAlert(dismissed).text(), "3");
}

std::string pageWithAlert() {
  std::string page = PAGE_WITH_SHEET;
  for (auto place = page.find("Sheet"); place != std::string::npos; place = page.find("Sheet")) {
    page.replace(place, std::string("Sheet").size(), "Alert");
  }
  return page;
}

TEST(Alerts, AnAlertIsAcceptedByItsLastButtonAndDismissedByItsFirst) {
  TestPhone accepted(pageWithAlert(), TELL_WHICH);
  theAlert(accepted).accept();
  EXPECT_EQ(theAlert(accepted).text(), "3");
  TestPhone dismissed(pageWithAlert(), TELL_WHICH);
  theAlert(dismissed).dismiss();
  EXPECT_EQ(theAlert(dismissed).text(), "1");
}

TEST(Alerts, ASettingSelectsTheButtonWhereItFindsOne) {
  TestPhone phone(pageWithAlert(), TELL_WHICH);
  phone.served().session()->settings.update(
      {{"acceptAlertButtonSelector", "**/XCUIElementTypeButton[`label == 'Middle'`]"}});
  phone.served().session()->settings.update({{"dismissAlertButtonSelector", "**/XCUIElementTypeCell"}});
  theAlert(phone).accept();
  EXPECT_EQ(theAlert(phone).text(), "2");
  theAlert(phone).press("OK");
  theAlert(phone).dismiss();
  EXPECT_EQ(theAlert(phone).text(), "1");
}

TEST(Alerts, WithoutAButtonCannotBeAnswered) {
  TestPhone phone(R"(<XCUIElementTypeAlert label="Wait" x="0" y="0" width="100" height="100"/>)");
  EXPECT_EQ(theAlert(phone).text(), "Wait");
  EXPECT_EQ(errorOf([&] { theAlert(phone).accept(); }), "invalid element state: the alert has no button");
  EXPECT_EQ(errorOf([&] { theAlert(phone).press("OK"); }),
            "invalid element state: the alert has no button \"OK\"; it has none");
}

}  // namespace
}  // namespace quobrak::phoneserver
