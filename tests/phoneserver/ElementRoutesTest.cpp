#include "phoneserver/ElementRoutes.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(
  <XCUIElementTypeOther name="group" x="0" y="0" width="100" height="100">
    <XCUIElementTypeButton name="a" label="A" enabled="false" x="1" y="2" width="30" height="40"/>
  </XCUIElementTypeOther>
  <XCUIElementTypeButton name="b" label="B" selected="true" x="200" y="0" width="10" height="10"/>
  <XCUIElementTypeTextField name="field" x="0" y="150" width="100" height="30"/>)";

std::string reference(const std::string& id) {
  return "{'ELEMENT':'" + id + "','element-6066-11e4-a52e-4f735466cecf':'" + id + "'}";
}

TEST(ElementRoutes, FindTheFirstElementAndAllOfThem) {
  TestPhone phone(PAGE);
  const std::string buttons = "{'using': 'class name', 'value': 'XCUIElementTypeButton'}";
  EXPECT_EQ(phone.post("session/element", buttons), reference(phone.id("a")));
  EXPECT_EQ(phone.post("session/elements", buttons),
            "[" + reference(phone.id("a")) + "," + reference(phone.id("b")) + "]");
}

TEST(ElementRoutes, FindBelowAnElement) {
  TestPhone phone(PAGE);
  const std::string group = "session/element/" + phone.id("group");
  const std::string buttons = "{'using': 'class chain', 'value': '**/XCUIElementTypeButton'}";
  EXPECT_EQ(phone.post(group + "/element", buttons), reference(phone.id("a")));
  EXPECT_EQ(phone.post(group + "/elements", buttons), "[" + reference(phone.id("a")) + "]");
}

TEST(ElementRoutes, WhatIsNotFoundIsAnErrorForOneAndAnEmptyListForAll) {
  TestPhone phone(PAGE);
  const std::string cells = "{'using': 'class name', 'value': 'XCUIElementTypeCell'}";
  EXPECT_EQ(phone.post("session/element", cells),
            "no such element: no element is found by the class name XCUIElementTypeCell");
  EXPECT_EQ(phone.post("session/elements", cells), "[]");
  EXPECT_EQ(phone.post("session/elements"), "invalid argument: \"using\" is missing; it must be a text");
}

TEST(ElementRoutes, TellTheElementThatHasTheFocus) {
  TestPhone phone(PAGE);
  EXPECT_EQ(phone.get("session/element/active"), "no such element: no element has the keyboard's focus");
  phone.phone().touch({50, 160}, Seconds::zero());
  EXPECT_EQ(phone.get("session/element/active"), reference(phone.id("field")));
}

TEST(ElementRoutes, TellWhatAnElementIs) {
  TestPhone phone(PAGE);
  const std::string a = "session/element/" + phone.id("a");
  const std::string b = "session/element/" + phone.id("b");
  EXPECT_EQ(phone.get(a + "/attribute/label"), "'A'");
  EXPECT_EQ(phone.get(a + "/attribute/value"), "null");
  EXPECT_EQ(phone.get(a + "/text"), "'A'");
  EXPECT_EQ(phone.get(b + "/text"), "'1'");
  EXPECT_EQ(phone.get(a + "/name"), "'XCUIElementTypeButton'");
  EXPECT_EQ(phone.get(a + "/rect"), "{'height':40,'width':30,'x':1,'y':2}");
  EXPECT_EQ(phone.get(a + "/enabled"), "false");
  EXPECT_EQ(phone.get(b + "/enabled"), "true");
  EXPECT_EQ(phone.get(a + "/selected"), "false");
  EXPECT_EQ(phone.get(b + "/selected"), "true");
  EXPECT_EQ(phone.get(a + "/displayed"), "true");
  EXPECT_EQ(phone.get(b + "/displayed"), "false");
  EXPECT_EQ(phone.get("session/wda/element/" + phone.id("a") + "/accessible"), "true");
  EXPECT_EQ(phone.get("session/wda/element/" + phone.id("group") + "/accessible"), "false");
  EXPECT_EQ(phone.get("session/wda/element/" + phone.id("group") + "/accessibilityContainer"), "true");
}

TEST(ElementRoutes, AskedOfAnElementThatIsGoneSayThatItIsStale) {
  TestPhone phone(PAGE);
  const std::string a = "session/element/" + phone.id("a");
  phone.phone().launch("com.example.test");
  for (const char* const question : {"/attribute/label", "/text", "/rect", "/enabled"}) {
    EXPECT_EQ(phone.get(a + question).substr(0, 24), "stale element reference:") << question;
  }
}

}  // namespace
}  // namespace quobrak::phoneserver
