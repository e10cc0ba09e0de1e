#pragma once

#include <optional>
#include <string_view>

namespace quobrak::phoneserver {

/// The attributes of an element that predicates and clients can name.
enum class AttributeName {
  name,
  label,
  value,
  placeholderValue,
  type,
  enabled,
  selected,
  focused,
  visible,
  accessible,
  accessibilityContainer,
  hittable,
  index,
  rect,
  frame,
  rectX,
  rectY,
  rectWidth,
  rectHeight
};

/// The attribute that is written so: "label", "wdLabel", "rect.x". None for a name that elements do not have.
std::optional<AttributeName> attributeNamed(std::string_view name);

/// The same; raises `WireError` "unknown error", which tells the names that there are, in place of none.
AttributeName requiredAttribute(std::string_view name);

}  // namespace quobrak::phoneserver
