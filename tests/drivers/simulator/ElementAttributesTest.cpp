#include "drivers/simulator/ElementAttributes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string_view>

namespace quobrak::simulator {
namespace {

using ::testing::ThrowsMessage;
using Value = KeyValueSource::Value;

const std::function<bool(const Element&)> IS_HITTABLE = [](const Element& element) { return element.isSelected; };

constexpr const char* UNKNOWN =
    R"(elements have no attribute "frame"; they have label, identifier, placeholderValue, value, enabled, )"
    R"(selected, exists, hittable)";

TEST(ElementAttributes, OfAnElement) {
  Element field(ElementType::textField);
  field.label = "Save";
  field.identifier = "field";
  field.placeholder = "Name";
  field.value = "Ada";
  const ElementAttributes attributes(&field, IS_HITTABLE);
  EXPECT_EQ(attributes.valueForKey("label"), Value("Save"));
  EXPECT_EQ(attributes.valueForKey("identifier"), Value("field"));
  EXPECT_EQ(attributes.valueForKey("placeholderValue"), Value("Name"));
  EXPECT_EQ(attributes.valueForKey("value"), Value("Ada"));
  EXPECT_EQ(attributes.valueForKey("enabled"), Value(true));
  EXPECT_EQ(attributes.valueForKey("selected"), Value(false));
  EXPECT_EQ(attributes.valueForKey("exists"), Value(true));
  EXPECT_EQ(attributes.valueForKey("hittable"), Value(false));
  field.isEnabled = false;
  field.isSelected = true;
  EXPECT_EQ(attributes.valueForKey("enabled"), Value(false));
  EXPECT_EQ(attributes.valueForKey("selected"), Value(true));
  EXPECT_EQ(attributes.valueForKey("hittable"), Value(true));
}

TEST(ElementAttributes, AnElementWithoutValueAndPlaceholderHasNone) {
  const Element button(ElementType::button);
  const ElementAttributes attributes(&button, IS_HITTABLE);
  EXPECT_EQ(attributes.valueForKey("value"), Value());
  EXPECT_EQ(attributes.valueForKey("placeholderValue"), Value());
}

TEST(ElementAttributes, OfAnAbsentElement) {
  const ElementAttributes attributes(nullptr, IS_HITTABLE);
  EXPECT_EQ(attributes.valueForKey("label"), Value(""));
  EXPECT_EQ(attributes.valueForKey("identifier"), Value(""));
  EXPECT_EQ(attributes.valueForKey("placeholderValue"), Value());
  EXPECT_EQ(attributes.valueForKey("value"), Value());
  for (const std::string_view key : {"enabled", "selected", "exists", "hittable"}) {
    EXPECT_EQ(attributes.valueForKey(key), Value(false)) << key;
  }
  EXPECT_THAT([&] { attributes.valueForKey("frame"); }, ThrowsMessage<UnknownAttributeError>(UNKNOWN));
}

TEST(ElementAttributes, KnownOnesAreRequiredOfTheWholePredicate) {
  for (const std::string_view format :
       {"TRUEPREDICATE", "label == \"frame\"", "NOT (enabled == TRUE OR value CONTAINS identifier)"}) {
    EXPECT_NO_THROW(requireKnownAttributes(NSPredicate(format))) << format;
  }
  for (const std::string_view format :
       {"frame == \"x\"", "\"x\" == frame", "label == \"a\" AND (enabled == TRUE OR NOT frame == \"x\")"}) {
    EXPECT_THAT([format] { requireKnownAttributes(NSPredicate(format)); },
                ThrowsMessage<UnknownAttributeError>(UNKNOWN))
        << format;
  }
}

}  // namespace
}  // namespace quobrak::simulator
