#include "phoneserver/AttributeNames.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;

TEST(AttributeNames, MayHaveThePrefix) {
  EXPECT_EQ(attributeNamed("label"), AttributeName::label);
  EXPECT_EQ(attributeNamed("wdLabel"), AttributeName::label);
  EXPECT_EQ(attributeNamed("rect.x"), AttributeName::rectX);
  EXPECT_EQ(attributeNamed("wdPlaceholderValue"), AttributeName::placeholderValue);
}

TEST(AttributeNames, AreExact) {
  for (const char* const name : {"", "Label", "wd", "wdlabel", "wdLabels", "identifier", "isEnabled", "rect.z"}) {
    EXPECT_EQ(attributeNamed(name), std::nullopt) << name;
  }
}

TEST(AttributeNames, ThatAreRequiredAreToldWhereOneIsUnknown) {
  EXPECT_EQ(requiredAttribute("type"), AttributeName::type);
  EXPECT_EQ(errorOf([] { requiredAttribute("identifier"); }),
            "unknown error: elements have no attribute \"identifier\"; they have label, name, value, placeholderValue, "
            "type, enabled, selected, focused, visible, accessible, accessibilityContainer, hittable, index, rect, "
            "frame, rect.x, rect.y, rect.width, rect.height");
}

}  // namespace
}  // namespace quobrak::phoneserver
