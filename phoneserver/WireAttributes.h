#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "drivers/simulator/Element.h"
#include "phoneserver/ServedPhone.h"
#include "platform/foundation/JSON.h"
#include "platform/uiautomation/ElementType.h"

namespace quobrak::phoneserver {

// An element's attributes as the protocol names and fills them. Views live as long as the element is unchanged.

/// The name of the type on the wire: "XCUIElementTypeButton".
const std::string& wireTypeOf(ElementType type);

/// The type of that name on the wire; none for another name.
std::optional<ElementType> typeOfWireName(std::string_view name);

/// Whether text is typed into such an element.
bool isTextInput(ElementType type);

/// The identifier or, where it is empty, the label. None where both are empty.
std::optional<std::string_view> wireNameOf(const simulator::Element& element);
/// None where it is empty, save that of a text input.
std::optional<std::string_view> wireLabelOf(const simulator::Element& element);
/// A static text without a value has its label, an empty text input its placeholder, a selected button "1", and a
/// switch "0" or "1". None where there is nothing to tell.
std::optional<std::string_view> wireValueOf(const simulator::Element& element);
std::optional<std::string_view> wirePlaceholderOf(const simulator::Element& element);
/// The value or, where there is none, the label.
std::string_view wireTextOf(const simulator::Element& element);
/// Whether assistive programs are offered the element itself, or what is in it.
bool isAccessible(const simulator::Element& element);
bool isAccessibilityContainer(const simulator::Element& element);

/// A rectangle in whole points.
struct WireRect {
  std::int64_t x;
  std::int64_t y;
  std::int64_t width;
  std::int64_t height;
};
/// The frame, rounded outwards. One that is no rectangle is at -1, -1 and has no size.
WireRect wireRectOf(const simulator::Element& element);
JSONValue jsonOf(const WireRect& rect);

/// The attribute of that name, which may have the prefix "wd" ("wdLabel"). Raises `WireError` "unknown error" for a
/// name that elements do not have.
JSONValue attributeOf(const ServedPhone& served, const simulator::Element& element, std::string_view name);

}  // namespace quobrak::phoneserver
