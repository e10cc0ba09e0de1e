#include "phoneserver/PageSourceWriter.h"

#include <gtest/gtest.h>

#include "drivers/simulator/PageSource.h"
#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;
using quobrak::testing::namesOf;
using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(
  <XCUIElementTypeButton name="id" label="A &lt; B &quot;" selected="true" x="1.5" y="2" width="3" height="4"/>
  <XCUIElementTypeTextField placeholderValue="p" enabled="false" x="200"/>)";

TEST(PageSourceWriter, WritesEveryAttribute) {
  TestPhone phone(PAGE);
  EXPECT_EQ(pageSource(phone.scope(), {}),
            R"(<?xml version="1.0"?>
<XCUIElementTypeApplication type="XCUIElementTypeApplication" name="Test" label="Test" enabled="true" visible="true" accessible="false" x="0" y="0" width="100" height="200" index="0">
  <XCUIElementTypeWindow type="XCUIElementTypeWindow" enabled="true" visible="true" accessible="false" x="0" y="0" width="100" height="200" index="0">
    <XCUIElementTypeButton type="XCUIElementTypeButton" value="1" name="id" label="A &lt; B &quot;" enabled="true" visible="true" accessible="true" selected="true" x="1" y="2" width="4" height="4" index="0" />
    <XCUIElementTypeTextField type="XCUIElementTypeTextField" value="p" label="" enabled="false" visible="false" accessible="true" x="200" y="0" width="0" height="0" index="1" placeholderValue="p" />
  </XCUIElementTypeWindow>
</XCUIElementTypeApplication>
)");
}

TEST(PageSourceWriter, LeavesOutWhatIsExcludedAndWhatIsTooDeep) {
  TestPhone phone(PAGE);
  EXPECT_EQ(pageSource(phone.scope(0), {"type", "visible", "accessible", "x", "y", "width", "height", "index"}),
            "<?xml version=\"1.0\"?>\n<XCUIElementTypeApplication name=\"Test\" label=\"Test\" enabled=\"true\" />\n");
}

TEST(PageSourceWriter, WritesWhatAPhoneCanBeDescribedWith) {
  TestPhone phone(PAGE);
  const auto read = simulator::readPageSource(pageSource(phone.scope(), {}), {100, 200});
  const simulator::Element& button = *read->children().front()->children().front();
  EXPECT_EQ(button.identifier, "id");
  EXPECT_EQ(button.label, "A < B \"");
  EXPECT_TRUE(button.isSelected);
  const simulator::Element& field = *read->children().front()->children().back();
  EXPECT_EQ(field.placeholder, "p");
  EXPECT_EQ(field.value, std::nullopt);
}

struct Row {
  const char* expression;
  const char* names;
};

TEST(XPath, SelectsElementsInTheOrderOfTheDocument) {
  TestPhone phone(R"(<XCUIElementTypeOther name="a"><XCUIElementTypeButton name="b" label="x"/></XCUIElementTypeOther>
                     <XCUIElementTypeButton name="c" label="y"/>)");
  const Row ROWS[] = {
      {"//XCUIElementTypeButton", "b c"},
      {"//*[@name='c'] | //*[@name='a']", "a c"},
      {"//XCUIElementTypeButton[@label='y']", "c"},
      {"/XCUIElementTypeApplication/XCUIElementTypeWindow/*", "a c"},
      {"//*[@name='b']/..", "a"},
      {"(//XCUIElementTypeButton)[last()]", "c"},
      {"//XCUIElementTypeCell", ""},
  };
  for (const Row& row : ROWS) {
    EXPECT_EQ(namesOf(elementsOfXPath(phone.scope(), row.expression)), row.names) << row.expression;
  }
}

TEST(XPath, ThatCannotBeUsedIsRefused) {
  TestPhone phone(PAGE);
  const auto error = [&phone](const char* expression) {
    return errorOf([&] { elementsOfXPath(phone.scope(), expression); });
  };
  EXPECT_TRUE(error("//[").starts_with("invalid selector: column 3: ")) << error("//[");
  EXPECT_TRUE(error("//[").ends_with(" in the XPath expression: //["));
  EXPECT_EQ(error("//*/@name"),
            "invalid selector: elements must be selected, not attributes, texts or the document in "
            "the XPath expression: //*/@name");
  EXPECT_EQ(error("/"),
            "invalid selector: elements must be selected, not attributes, texts or the document in the "
            "XPath expression: /");
  EXPECT_TRUE(error("count(//*)").starts_with("invalid selector: ")) << error("count(//*)");
}

}  // namespace
}  // namespace quobrak::phoneserver
