#include "phoneserver/ElementReplies.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;
using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(<XCUIElementTypeTextField name="id" placeholderValue="p" x="1" width="9" height="9"/>)";

void askFor(TestPhone& phone, const char* attributes) {
  Settings& settings = phone.served().session()->settings;
  settings.update({{"shouldUseCompactResponses", false}});
  settings.update({{"elementResponseAttributes", attributes}});
}

TEST(ElementReplies, AreCompactUnlessTheSessionWantsMore) {
  TestPhone phone(PAGE);
  const std::string id = phone.id("id");
  EXPECT_EQ(JSONEncoder::encode(elementReply(phone.served(), phone.element("id"))),
            R"({"ELEMENT":")" + id + R"(","element-6066-11e4-a52e-4f735466cecf":")" + id + R"("})");
}

TEST(ElementReplies, CarryTheAttributesThatTheSessionLists) {
  TestPhone phone(PAGE);
  askFor(phone, "name,type,label,text,rect,enabled,displayed,selected,attribute/name,attribute/value,unheardOf");
  const std::string id = phone.id("id");
  EXPECT_EQ(JSONEncoder::encode(elementReply(phone.served(), phone.element("id"))),
            R"({"ELEMENT":")" + id + R"(","attribute\/name":"id","attribute\/value":"p","displayed":true,)" +
                R"("element-6066-11e4-a52e-4f735466cecf":")" + id + R"(","enabled":true,"label":"",)" +
                R"("name":"XCUIElementTypeTextField","rect":{"height":9,"width":9,"x":1,"y":0},"selected":false,)" +
                R"("text":"p","type":"XCUIElementTypeTextField"})");
}

TEST(ElementReplies, RefuseAnAttributeThatElementsDoNotHave) {
  TestPhone phone(PAGE);
  askFor(phone, "attribute/title");
  EXPECT_TRUE(errorOf([&] {
                elementReply(phone.served(), phone.element("id"));
              }).starts_with("unknown error: elements have no attribute \"title\""));
}

}  // namespace
}  // namespace quobrak::phoneserver
