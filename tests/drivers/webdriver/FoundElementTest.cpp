#include "drivers/webdriver/FoundElement.h"

#include "tests/drivers/webdriver/ScriptedServer.h"

namespace quobrak::webdriver {
namespace {

using ::testing::IsEmpty;

/// The element that a look-up found, from its members as JSON.
FoundElement elementWith(const std::string& members) {
  const std::string id = R"({"element-6066-11e4-a52e-4f735466cecf":"e1")";
  return foundElements(JSONDecoder::decode("[" + id + (members.empty() ? "" : ",") + members + "}]")).front();
}

TEST(FoundElements, HaveAllThatTheReplyTells) {
  const std::vector<FoundElement> elements = foundElements(JSONDecoder::decode(R"([
      {"element-6066-11e4-a52e-4f735466cecf": "e1", "ELEMENT": "e1", "type": "XCUIElementTypeTextField",
       "label": "Name", "enabled": true, "selected": false, "rect": {"x": 1, "y": -2, "width": 30.5, "height": 40},
       "attribute/name": "field", "attribute/value": "Ada", "attribute/placeholderValue": "Your name",
       "attribute/hittable": true},
      {"ELEMENT": "e2", "type": "XCUIElementTypeButton", "label": null, "enabled": "0", "selected": "1",
       "attribute/name": null, "attribute/value": null, "attribute/placeholderValue": null,
       "attribute/hittable": "false"}])"));
  ASSERT_EQ(elements.size(), 2U);
  EXPECT_EQ(elements[0].id, "e1");
  EXPECT_EQ(elements[0].type, ElementType::textField);
  EXPECT_EQ(elements[0].identifier, "field");
  EXPECT_EQ(elements[0].label, "Name");
  EXPECT_EQ(elements[0].value, ElementValue("Ada"));
  EXPECT_EQ(elements[0].placeholder, "Your name");
  EXPECT_TRUE(elements[0].isEnabled);
  EXPECT_FALSE(elements[0].isSelected);
  EXPECT_TRUE(elements[0].isHittable);
  EXPECT_EQ(elements[0].frame, (Rect{{1, -2}, {30.5, 40}}));
  EXPECT_EQ(elements[1].id, "e2");
  EXPECT_EQ(elements[1].type, ElementType::button);
  EXPECT_EQ(elements[1].identifier, "");
  EXPECT_EQ(elements[1].label, "");
  EXPECT_EQ(elements[1].value, ElementValue());
  EXPECT_EQ(elements[1].placeholder, std::nullopt);
  EXPECT_FALSE(elements[1].isEnabled);
  EXPECT_TRUE(elements[1].isSelected);
  EXPECT_FALSE(elements[1].isHittable);
  EXPECT_EQ(elements[1].frame, Rect());
}

TEST(FoundElements, MayBeNone) {
  EXPECT_THAT(foundElements(JSONValue::Array{}), IsEmpty());
}

TEST(FoundElements, TheNameIsTheIdentifierUnlessItIsTheLabel) {
  struct Row {
    const char* members;
    const char* identifier;
  };
  constexpr Row ROWS[] = {
      {R"("label":"Next","attribute/name":"next")", "next"},
      {R"("label":"Next","attribute/name":"Next")", ""},
      {R"("label":null,"attribute/name":"next")", "next"},
      {R"("label":"Next","attribute/name":null)", ""},
      {R"("label":"Next")", ""},
      {R"("attribute/name":"next")", "next"},
      {"", ""},
  };
  for (const auto& [members, identifier] : ROWS) {
    EXPECT_EQ(elementWith(members).identifier, identifier) << members;
  }
}

TEST(FoundElements, AValueThatStandsInForAnotherAttributeIsNone) {
  struct Row {
    const char* members;
    ElementValue value;
  };
  const Row ROWS[] = {
      {R"("type":"XCUIElementTypeStaticText","label":"a","attribute/value":"a")", {}},
      {R"("type":"XCUIElementTypeStaticText","label":"a","attribute/value":"b")", "b"},
      {R"("type":"XCUIElementTypeStaticText","attribute/value":"")", {}},
      {R"("type":"XCUIElementTypeTextView","label":"a","attribute/value":"a")", "a"},
      {R"("type":"XCUIElementTypeButton","selected":true,"attribute/value":"1")", {}},
      {R"("type":"XCUIElementTypeButton","selected":true,"attribute/value":"2")", "2"},
      {R"("type":"XCUIElementTypeButton","selected":false,"attribute/value":"1")", "1"},
      {R"("type":"XCUIElementTypeSwitch","selected":true,"attribute/value":"1")", "1"},
      {R"("attribute/value":"")", ""},
      {R"("attribute/value":null)", {}},
      {R"("attribute/value":0.5)", OtherValue{}},
      {R"("attribute/value":1)", OtherValue{}},
      {R"("attribute/value":true)", OtherValue{}},
      {"", {}},
  };
  for (const auto& [members, value] : ROWS) {
    EXPECT_EQ(elementWith(members).value, value) << members;
  }
}

TEST(FoundElements, ATypeThatNobodyKnowsIsOther) {
  struct Row {
    const char* members;
    ElementType type;
  };
  constexpr Row ROWS[] = {
      {R"("type":"XCUIElementTypeSwitch")", ElementType::switchControl},
      {R"("type":"XCUIElementTypeAny")", ElementType::any},
      {R"("type":"XCUIElementTypeHologram")", ElementType::other},
      {R"("type":"Button")", ElementType::other},
      {R"("type":"XCUIElementType")", ElementType::other},
      {R"("type":9)", ElementType::other},
      {"", ElementType::other},
  };
  for (const auto& [members, type] : ROWS) {
    EXPECT_EQ(elementWith(members).type, type) << members;
  }
}

TEST(FoundElements, WithoutTruthValuesAreDisabled) {
  const FoundElement element = elementWith("");
  EXPECT_FALSE(element.isEnabled);
  EXPECT_FALSE(element.isSelected);
  EXPECT_FALSE(element.isHittable);
}

TEST(FoundElements, TheStandardsKeyOfTheIdGoesFirst) {
  EXPECT_EQ(elementWith(R"("ELEMENT":"old")").id, "e1");
}

TEST(FoundElements, WhatIsNoLookupIsNonsense) {
  struct Row {
    const char* reply;
    const char* what;
  };
  constexpr Row ROWS[] = {
      {"null", "no list"},
      {"{}", "no list"},
      {R"("e1")", "no list"},
      {"7", "no list"},
      {"[7]", "an element is no object"},
      {"[null]", "an element is no object"},
      {"[[]]", "an element is no object"},
      {"[{}]", "an element has no id"},
      {R"([{"ELEMENT":""}])", "an element has no id"},
      {R"([{"ELEMENT":7}])", "an element has no id"},
      {R"([{"ELEMENT":"e1"},{"label":"a"}])", "an element has no id"},
      {R"([{"ELEMENT":"e1/click"}])", "an element has the id \"e1/click\", which cannot stand in a path"},
      {R"([{"ELEMENT":".."}])", "an element has the id \"..\", which cannot stand in a path"},
  };
  for (const auto& [reply, what] : ROWS) {
    const JSONValue value = JSONDecoder::decode(reply);
    EXPECT_THAT([&] { foundElements(value); },
                throwsFault(Fault::nonsense, "the server answered a look-up with what is none: " + std::string(what)));
  }
}

TEST(RectIn, IsWithoutExtentWhereItIsNone) {
  struct Row {
    const char* json;
    Rect rect;
  };
  constexpr Row ROWS[] = {
      {R"({"x":1,"y":2,"width":3,"height":4})", {{1, 2}, {3, 4}}},
      {R"({"x":-1.5,"y":0.25,"width":1e2,"height":0})", {{-1.5, 0.25}, {100, 0}}},
      {R"({"x":1,"height":4})", {{1, 0}, {0, 4}}},
      {R"({"x":"1","y":null,"width":true,"height":[4]})", {}},
      {"{}", {}},
      {"null", {}},
      {"[1,2,3,4]", {}},
      {R"("{{1,2},{3,4}}")", {}},
  };
  for (const auto& [json, rect] : ROWS) {
    EXPECT_EQ(rectIn(JSONDecoder::decode(json)), rect) << json;
  }
}

TEST(TruthOf, UnderstandsAllThatServersWrite) {
  for (const char* const json : {"true", "1", "1.0", "-1", R"("true")", R"("1")"}) {
    EXPECT_TRUE(truthOf(JSONDecoder::decode(json))) << json;
  }
  for (const char* const json :
       {"false", "0", "0.0", "null", R"("false")", R"("0")", R"("")", R"("yes")", "[]", "{}", "[true]"}) {
    EXPECT_FALSE(truthOf(JSONDecoder::decode(json))) << json;
  }
}

}  // namespace
}  // namespace quobrak::webdriver
