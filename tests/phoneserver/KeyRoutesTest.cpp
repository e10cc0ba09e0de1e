#include "phoneserver/KeyRoutes.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(
  <XCUIElementTypeTextField name="field" x="0" y="0" width="90" height="20"/>
  <XCUIElementTypeTextField name="other" value="old é" x="0" y="30" width="90" height="20"/>
  <XCUIElementTypeButton name="button" x="0" y="60" width="90" height="20"/>)";

struct KeyRoutesTest : ::testing::Test {
  TestPhone phone{PAGE};

  std::string toElement(const std::string& command, const std::string& name, const std::string& body = "{}") {
    return phone.post("session/element/" + phone.id(name) + "/" + command, body);
  }
  std::string valueOf(const std::string& name) { return phone.element(name).value.value_or("none"); }
};

TEST_F(KeyRoutesTest, TextGoesToAnElementWhichIsTouchedFirst) {
  EXPECT_EQ(toElement("value", "field", "{'text': 'lamp 日本'}"), "null");
  EXPECT_EQ(valueOf("field"), "lamp 日本");
  EXPECT_TRUE(phone.element("field").hasKeyboardFocus);
  EXPECT_EQ(toElement("value", "field", "{'value': ['!', '?']}"), "null");
  EXPECT_EQ(valueOf("field"), "lamp 日本!?");
  EXPECT_EQ(toElement("value", "other", "{'text': '!'}"), "null");
  EXPECT_EQ(valueOf("other"), "old é!");
}

TEST_F(KeyRoutesTest, TextGoesToNothingElse) {
  EXPECT_EQ(toElement("value", "button", "{'text': 'x'}"),
            "invalid element state: the element, an XCUIElementTypeButton, does not take the keyboard's focus when it "
            "is touched");
  EXPECT_EQ(toElement("value", "field"),
            "invalid argument: \"value\" is missing; it must be a text or a list of texts");
}

TEST_F(KeyRoutesTest, TextGoesToTheFocus) {
  EXPECT_EQ(phone.post("session/wda/keys", "{'value': ['x']}"),
            "invalid element state: no element has the keyboard's focus");
  phone.phone().touch({10, 40}, Seconds::zero());
  EXPECT_EQ(phone.post("session/wda/keys", "{'value': [' ', 'x'], 'frequency': 60}"), "null");
  EXPECT_EQ(valueOf("other"), "old é x");
}

TEST_F(KeyRoutesTest, AnElementIsCleared) {
  EXPECT_EQ(toElement("clear", "other"), "null");
  EXPECT_EQ(valueOf("other"), "none");
  EXPECT_EQ(toElement("clear", "field"), "null");
  EXPECT_EQ(valueOf("field"), "none");
  EXPECT_EQ(toElement("clear", "button").substr(0, 22), "invalid element state:");
}

TEST_F(KeyRoutesTest, TheKeyboardGoesAwayByAKeyOfIt) {
  EXPECT_EQ(phone.post("session/wda/keyboard/dismiss"), "null") << "there is none yet";
  toElement("value", "field", "{'text': 'x'}");
  EXPECT_EQ(phone.post("session/wda/keyboard/dismiss"),
            "invalid element state: the keyboard has none of these keys: name one of its keys that ends the typing in "
            "\"keyNames\"");
  EXPECT_EQ(phone.post("session/wda/keyboard/dismiss", "{'keyNames': ['nothing', 'Return']}"), "null");
  EXPECT_FALSE(phone.element("field").hasKeyboardFocus);
  EXPECT_EQ(phone.post("session/wda/keyboard/dismiss", "{'keyNames': [1]}"),
            "invalid argument: \"keyNames\" must be a text");
}

}  // namespace
}  // namespace quobrak::phoneserver
