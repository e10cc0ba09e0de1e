#include "drivers/webdriver/ElementAttributes.h"

#include <gtest/gtest.h>

namespace quobrak::webdriver {
namespace {

using Value = KeyValueSource::Value;

struct Row {
  const char* key;
  Value value;
};

TEST(ElementAttributes, AreWhatTheLookupFound) {
  const std::optional<FoundElement> element = FoundElement{.identifier = "id",
                                                           .label = "Name",
                                                           .value = "typed",
                                                           .placeholder = "hint",
                                                           .isEnabled = true,
                                                           .isSelected = false};
  const ElementAttributes attributes(element, [] { return true; });
  const Row ROWS[] = {{"exists", true},
                      {"hittable", true},
                      {"label", std::string_view("Name")},
                      {"identifier", std::string_view("id")},
                      {"placeholderValue", std::string_view("hint")},
                      {"value", std::string_view("typed")},
                      {"enabled", true},
                      {"selected", false}};
  for (const auto& [key, value] : ROWS) {
    EXPECT_EQ(attributes.valueForKey(key), value) << key;
  }
}

TEST(ElementAttributes, TheTruthValuesAreNotMixedUp) {
  const std::optional<FoundElement> element = FoundElement{.isEnabled = false, .isSelected = true, .isHittable = true};
  const ElementAttributes attributes(element, [] { return false; });
  EXPECT_EQ(attributes.valueForKey("enabled"), Value(false));
  EXPECT_EQ(attributes.valueForKey("selected"), Value(true));
  EXPECT_EQ(attributes.valueForKey("hittable"), Value(false)) << "that is asked, and not what the look-up found";
}

TEST(ElementAttributes, WhatIsMissingIsNoValueButLabelAndIdentifierAreEmptyTexts) {
  for (const ElementValue& value : {ElementValue(), ElementValue(OtherValue{})}) {
    const std::optional<FoundElement> element = FoundElement{.value = value};
    const ElementAttributes attributes(element, [] { return false; });
    EXPECT_EQ(attributes.valueForKey("value"), Value());
    EXPECT_EQ(attributes.valueForKey("placeholderValue"), Value());
    EXPECT_EQ(attributes.valueForKey("label"), Value(std::string_view()));
    EXPECT_EQ(attributes.valueForKey("identifier"), Value(std::string_view()));
  }
}

TEST(ElementAttributes, OfAnAbsentElementAreEmptyAndFalse) {
  const std::optional<FoundElement> absent;
  const ElementAttributes attributes(absent, [] { return false; });
  const Row ROWS[] = {{"exists", false},
                      {"hittable", false},
                      {"label", std::string_view()},
                      {"identifier", std::string_view()},
                      {"placeholderValue", {}},
                      {"value", {}},
                      {"enabled", false},
                      {"selected", false}};
  for (const auto& [key, value] : ROWS) {
    EXPECT_EQ(attributes.valueForKey(key), value) << key;
  }
}

TEST(ElementAttributes, HittableIsAskedOnlyWhereThePredicateAsks) {
  const std::optional<FoundElement> element = FoundElement{.label = "a"};
  int asked = 0;
  const ElementAttributes attributes(element, [&asked] { return ++asked > 0; });
  EXPECT_FALSE(PredicateEvaluator(NSPredicate("label == 'b' AND hittable == TRUE")).evaluate(attributes));
  EXPECT_EQ(asked, 0);
  EXPECT_TRUE(PredicateEvaluator(NSPredicate("label == 'a' AND hittable == TRUE")).evaluate(attributes));
  EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace quobrak::webdriver
