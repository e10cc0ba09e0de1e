#include "phoneserver/WireAttributes.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;
using quobrak::testing::TestPhone;
using simulator::Element;

TEST(WireAttributes, TypesHaveTheirLongNames) {
  EXPECT_EQ(wireTypeOf(ElementType::staticText), "XCUIElementTypeStaticText");
  EXPECT_EQ(wireTypeOf(ElementType::any), "XCUIElementTypeAny");
  EXPECT_EQ(wireTypeOf(ElementType::statusItem), "XCUIElementTypeStatusItem");
  EXPECT_EQ(typeOfWireName("XCUIElementTypeStaticText"), ElementType::staticText);
  EXPECT_EQ(typeOfWireName("StaticText"), std::nullopt);
  EXPECT_EQ(typeOfWireName("XCUIElementTypeNothing"), std::nullopt);
}

TEST(WireAttributes, TheNameIsTheIdentifierOrElseTheLabel) {
  Element element(ElementType::button);
  EXPECT_EQ(wireNameOf(element), std::nullopt);
  element.label = "label";
  EXPECT_EQ(wireNameOf(element), "label");
  element.identifier = "identifier";
  EXPECT_EQ(wireNameOf(element), "identifier");
}

TEST(WireAttributes, AnEmptyLabelIsNoneSaveOfATextInput) {
  EXPECT_EQ(wireLabelOf(Element(ElementType::button)), std::nullopt);
  for (const ElementType type :
       {ElementType::textField, ElementType::secureTextField, ElementType::searchField, ElementType::textView}) {
    EXPECT_EQ(wireLabelOf(Element(type)), "") << nameOf(type);
  }
}

struct ValueRow {
  ElementType type;
  std::optional<std::string> own;
  bool isSelected;
  std::optional<std::string_view> onTheWire;
};

TEST(WireAttributes, TheValueDependsOnTheType) {
  const ValueRow ROWS[] = {
      {ElementType::staticText, std::nullopt, false, "label"},
      {ElementType::staticText, "own", false, "own"},
      {ElementType::button, std::nullopt, false, std::nullopt},
      {ElementType::button, std::nullopt, true, "1"},
      {ElementType::button, "own", true, "own"},
      {ElementType::switchControl, std::nullopt, false, "0"},
      {ElementType::switchControl, "0", false, "0"},
      {ElementType::switchControl, "1", false, "1"},
      {ElementType::textField, std::nullopt, false, "placeholder"},
      {ElementType::textField, "", false, "placeholder"},
      {ElementType::textField, "own", false, "own"},
      {ElementType::slider, "40%", false, "40%"},
      {ElementType::slider, "", false, std::nullopt},
      {ElementType::cell, std::nullopt, true, std::nullopt},
  };
  for (const ValueRow& row : ROWS) {
    Element element(row.type);
    element.label = "label";
    element.placeholder = "placeholder";
    element.value = row.own;
    element.isSelected = row.isSelected;
    EXPECT_EQ(wireValueOf(element), row.onTheWire) << nameOf(row.type) << " with " << row.own.value_or("none");
  }
}

TEST(WireAttributes, TheTextIsTheValueOrElseTheLabel) {
  Element element(ElementType::button);
  EXPECT_EQ(wireTextOf(element), "");
  element.label = "label";
  EXPECT_EQ(wireTextOf(element), "label");
  element.value = "value";
  EXPECT_EQ(wireTextOf(element), "value");
}

struct RectRow {
  Rect frame;
  const char* json;
};

TEST(WireAttributes, TheRectangleIsRoundedOutwards) {
  constexpr double INFINITE = std::numeric_limits<double>::infinity();
  const RectRow ROWS[] = {
      {{{1, 2}, {3, 4}}, R"({"height":4,"width":3,"x":1,"y":2})"},
      {{{1.5, 2.9}, {3, 4}}, R"({"height":5,"width":4,"x":1,"y":2})"},
      {{{-1.5, -2}, {3, 4.1}}, R"({"height":5,"width":4,"x":-2,"y":-2})"},
      {{{0, 0}, {0, 0}}, R"({"height":0,"width":0,"x":0,"y":0})"},
      {{{INFINITE, 0}, {1, 1}}, R"({"height":0,"width":0,"x":-1,"y":-1})"},
      {{{0, 0}, {INFINITE, 1}}, R"({"height":0,"width":0,"x":-1,"y":-1})"},
      {{{0, std::numeric_limits<double>::quiet_NaN()}, {1, 1}}, R"({"height":0,"width":0,"x":-1,"y":-1})"},
      {{{0, 0}, {1e300, 1}}, R"({"height":0,"width":0,"x":-1,"y":-1})"},
  };
  for (const RectRow& row : ROWS) {
    Element element(ElementType::cell);
    element.frame = row.frame;
    EXPECT_EQ(JSONEncoder::encode(jsonOf(wireRectOf(element))), row.json);
  }
}

TEST(WireAttributes, ContainersAreNotAccessibleButWhatTheyHoldIs) {
  Element table(ElementType::table);
  table.label = "Table";
  EXPECT_FALSE(isAccessible(table));
  EXPECT_FALSE(isAccessibilityContainer(table));
  Element& cell = table.append(ElementType::cell);
  EXPECT_TRUE(isAccessibilityContainer(table));
  EXPECT_FALSE(isAccessible(cell));
  cell.label = "Cell";
  EXPECT_TRUE(isAccessible(cell));
  EXPECT_FALSE(isAccessibilityContainer(cell));
}

TEST(WireAttributes, WhatHasAnEmptyTextIsNotAccessible) {
  Element field(ElementType::textField);
  field.value = "";
  field.placeholder = "";
  EXPECT_FALSE(isAccessible(field));
  field.placeholder = "Name";
  EXPECT_TRUE(isAccessible(field));
  field.placeholder.reset();
  field.value = "Ada";
  EXPECT_TRUE(isAccessible(field));
}

TEST(WireAttributes, AreFoundByTheirNames) {
  TestPhone phone(R"(<XCUIElementTypeButton/>
    <XCUIElementTypeTextField name="id" label="Label" value="v" placeholderValue="p" enabled="false" selected="true"
      x="1" y="2" width="30" height="4"/>)");
  const Element& element = phone.element("id");
  const auto attribute = [&](const char* name) { return attributeOf(phone.served(), element, name); };
  EXPECT_EQ(attribute("name"), JSONValue("id"));
  EXPECT_EQ(attribute("wdLabel"), JSONValue("Label"));
  EXPECT_EQ(attribute("value"), JSONValue("v"));
  EXPECT_EQ(attribute("placeholderValue"), JSONValue("p"));
  EXPECT_EQ(attribute("type"), JSONValue("XCUIElementTypeTextField"));
  EXPECT_EQ(attribute("enabled"), JSONValue(false));
  EXPECT_EQ(attribute("selected"), JSONValue(true));
  EXPECT_EQ(attribute("focused"), JSONValue(false));
  EXPECT_EQ(attribute("visible"), JSONValue(true));
  EXPECT_EQ(attribute("hittable"), JSONValue(true));
  EXPECT_EQ(attribute("accessible"), JSONValue(true));
  EXPECT_EQ(attribute("accessibilityContainer"), JSONValue(false));
  EXPECT_EQ(attribute("index"), JSONValue(1));
  EXPECT_EQ(JSONEncoder::encode(attribute("rect")), R"({"height":4,"width":30,"x":1,"y":2})");
  EXPECT_EQ(attribute("frame"), attribute("rect"));
  EXPECT_EQ(attribute("rect.x"), JSONValue(1));
  EXPECT_EQ(attribute("rect.y"), JSONValue(2));
  EXPECT_EQ(attribute("rect.width"), JSONValue(30));
  EXPECT_EQ(attribute("rect.height"), JSONValue(4));
  EXPECT_EQ(attributeOf(phone.served(), phone.served().activeScreen(), "index"), JSONValue(0));
  EXPECT_TRUE(errorOf([&] { attribute("title"); }).starts_with("unknown error: elements have no attribute \"title\""));
}

}  // namespace
}  // namespace quobrak::phoneserver
