#include "phoneserver/WireAttributes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <vector>

#include "drivers/simulator/Rectangles.h"
#include "phoneserver/AttributeNames.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

constexpr std::string_view TYPE_PREFIX = "XCUIElementType";

std::optional<std::string_view> unlessEmpty(std::string_view text) {
  return text.empty() ? std::nullopt : std::optional(text);
}

bool holdsText(const std::optional<std::string>& text) {
  return text && !text->empty();
}

JSONValue json(const std::optional<std::string_view>& text) {
  return text ? JSONValue(*text) : JSONValue();
}

std::int64_t indexOf(const Element& element) {
  if (element.parent() == nullptr) {
    return 0;
  }
  const auto& siblings = element.parent()->children();
  const auto place =
      std::find_if(siblings.begin(), siblings.end(), [&](const auto& sibling) { return sibling.get() == &element; });
  return std::distance(siblings.begin(), place);
}

}  // namespace

const std::string& wireTypeOf(ElementType type) {
  static const std::vector<std::string> NAMES = [] {
    std::vector<std::string> names;
    for (auto kind = std::size_t{0}; kind <= static_cast<std::size_t>(ElementType::statusItem); ++kind) {
      names.push_back(std::string(TYPE_PREFIX).append(nameOf(static_cast<ElementType>(kind))));
    }
    return names;
  }();
  return NAMES[static_cast<std::size_t>(type)];
}

std::optional<ElementType> typeOfWireName(std::string_view name) {
  return name.starts_with(TYPE_PREFIX) ? elementTypeNamed(name.substr(TYPE_PREFIX.size())) : std::nullopt;
}

bool isTextInput(ElementType type) {
  return type == ElementType::textField || type == ElementType::secureTextField || type == ElementType::searchField ||
         type == ElementType::textView;
}

std::optional<std::string_view> wireNameOf(const Element& element) {
  return unlessEmpty(element.identifier.empty() ? element.label : element.identifier);
}

std::optional<std::string_view> wireLabelOf(const Element& element) {
  return isTextInput(element.type) ? std::optional<std::string_view>(element.label) : unlessEmpty(element.label);
}

std::optional<std::string_view> wireValueOf(const Element& element) {
  const std::string_view own = element.value ? std::string_view(*element.value) : std::string_view();
  if (element.type == ElementType::switchControl) {
    return own == "1" ? "1" : "0";
  }
  if (!own.empty()) {
    return own;
  }
  if (element.type == ElementType::staticText) {
    return unlessEmpty(element.label);
  }
  if (element.type == ElementType::button) {
    return element.isSelected ? std::optional<std::string_view>("1") : std::nullopt;
  }
  return isTextInput(element.type) ? wirePlaceholderOf(element) : std::nullopt;
}

std::optional<std::string_view> wirePlaceholderOf(const Element& element) {
  return element.placeholder ? unlessEmpty(*element.placeholder) : std::nullopt;
}

std::string_view wireTextOf(const Element& element) {
  return wireValueOf(element).value_or(element.label);
}

bool isAccessible(const Element& element) {
  switch (element.type) {
    case ElementType::application:
    case ElementType::window:
    case ElementType::alert:
    case ElementType::sheet:
    case ElementType::navigationBar:
    case ElementType::tabBar:
    case ElementType::toolbar:
    case ElementType::scrollView:
    case ElementType::table:
    case ElementType::collectionView:
    case ElementType::webView:
    case ElementType::keyboard:
      return false;
    default:
      return !element.label.empty() || holdsText(element.value) || holdsText(element.placeholder);
  }
}

bool isAccessibilityContainer(const Element& element) {
  return !isAccessible(element) && !element.children().empty();
}

WireRect wireRectOf(const Element& element) {
  const Rect& frame = element.frame;
  const double right = frame.origin.x + frame.size.width;
  const double bottom = frame.origin.y + frame.size.height;
  // Far beyond any screen, and far from the end of what whole numbers can hold.
  constexpr double LARGEST = 1e9;
  for (const double edge : {frame.origin.x, frame.origin.y, right, bottom}) {
    if (!(std::abs(edge) <= LARGEST)) {
      return {-1, -1, 0, 0};
    }
  }
  const auto left = static_cast<std::int64_t>(std::floor(frame.origin.x));
  const auto top = static_cast<std::int64_t>(std::floor(frame.origin.y));
  return {left, top, static_cast<std::int64_t>(std::ceil(right)) - left,
          static_cast<std::int64_t>(std::ceil(bottom)) - top};
}

JSONValue jsonOf(const WireRect& rect) {
  return JSONValue::Object{{"x", rect.x}, {"y", rect.y}, {"width", rect.width}, {"height", rect.height}};
}

JSONValue attributeOf(const ServedPhone& served, const Element& element, std::string_view name) {
  switch (requiredAttribute(name)) {
    case AttributeName::name:
      return json(wireNameOf(element));
    case AttributeName::label:
      return json(wireLabelOf(element));
    case AttributeName::value:
      return json(wireValueOf(element));
    case AttributeName::placeholderValue:
      return json(wirePlaceholderOf(element));
    case AttributeName::type:
      return wireTypeOf(element.type);
    case AttributeName::enabled:
      return element.isEnabled;
    case AttributeName::selected:
      return element.isSelected;
    case AttributeName::focused:
      return element.hasKeyboardFocus;
    case AttributeName::visible:
      return served.isVisible(element);
    case AttributeName::accessible:
      return isAccessible(element);
    case AttributeName::hittable:
      return served.isHittable(element);
    case AttributeName::index:
      return indexOf(element);
    case AttributeName::rect:
    case AttributeName::frame:
      return jsonOf(wireRectOf(element));
    case AttributeName::rectX:
      return wireRectOf(element).x;
    case AttributeName::rectY:
      return wireRectOf(element).y;
    case AttributeName::rectWidth:
      return wireRectOf(element).width;
    case AttributeName::rectHeight:
      return wireRectOf(element).height;
    case AttributeName::accessibilityContainer:
      return isAccessibilityContainer(element);
  }
  return {};
}

}  // namespace quobrak::phoneserver
