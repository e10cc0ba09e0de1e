#include "phoneserver/ElementRoutes.h"

#include <string>

#include "phoneserver/ElementReplies.h"
#include "phoneserver/Locators.h"
#include "phoneserver/Targets.h"
#include "phoneserver/WireAttributes.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

FoundElements found(ServedPhone& served, const Call& call, const Element& root) {
  const std::string strategy = call.arguments.text("using");
  return elementsFound(scopeOf(served, root), strategy, call.arguments.text("value"));
}

JSONValue firstOf(ServedPhone& served, const Call& call, const FoundElements& elements) {
  if (elements.empty()) {
    throw WireError(WireErrorCode::noSuchElement,
                    "no element is found by the " + call.arguments.text("using") + " " + call.arguments.text("value"));
  }
  return elementReply(served, *elements.front());
}

JSONValue allOf(ServedPhone& served, const FoundElements& elements) {
  JSONValue::Array replies;
  for (const Element* element : elements) {
    replies.push_back(elementReply(served, *element));
  }
  return replies;
}

JSONValue find(ServedPhone& served, const Call& call) {
  return firstOf(served, call, found(served, call, served.activeScreen()));
}

JSONValue findAll(ServedPhone& served, const Call& call) {
  return allOf(served, found(served, call, served.activeScreen()));
}

JSONValue findBelow(ServedPhone& served, const Call& call) {
  return firstOf(served, call, found(served, call, targetElement(served, call)));
}

JSONValue findAllBelow(ServedPhone& served, const Call& call) {
  return allOf(served, found(served, call, targetElement(served, call)));
}

JSONValue focused(ServedPhone& served, const Call&) {
  const Element* found = nullptr;
  forEachDescendant(served.activeScreen(), [&found](const Element& element) {
    if (found == nullptr && element.hasKeyboardFocus) {
      found = &element;
    }
  });
  if (found == nullptr) {
    throw WireError(WireErrorCode::noSuchElement, "no element has the keyboard's focus");
  }
  return elementReply(served, *found);
}

JSONValue attribute(ServedPhone& served, const Call& call) {
  return attributeOf(served, targetElement(served, call), call.parameter("name"));
}

JSONValue text(ServedPhone& served, const Call& call) {
  return wireTextOf(targetElement(served, call));
}

JSONValue type(ServedPhone& served, const Call& call) {
  return wireTypeOf(targetElement(served, call).type);
}

JSONValue rect(ServedPhone& served, const Call& call) {
  return jsonOf(wireRectOf(targetElement(served, call)));
}

JSONValue isEnabled(ServedPhone& served, const Call& call) {
  return targetElement(served, call).isEnabled;
}

JSONValue isSelected(ServedPhone& served, const Call& call) {
  return targetElement(served, call).isSelected;
}

JSONValue isDisplayed(ServedPhone& served, const Call& call) {
  return served.isVisible(targetElement(served, call));
}

JSONValue isElementAccessible(ServedPhone& served, const Call& call) {
  return isAccessible(targetElement(served, call));
}

JSONValue isElementAccessibilityContainer(ServedPhone& served, const Call& call) {
  return isAccessibilityContainer(targetElement(served, call));
}

constexpr Route ROUTES[] = {
    {"POST", "/element", SessionNeed::session, find},
    {"POST", "/elements", SessionNeed::session, findAll},
    {"GET", "/element/active", SessionNeed::session, focused},
    {"POST", "/element/:element/element", SessionNeed::session, findBelow},
    {"POST", "/element/:element/elements", SessionNeed::session, findAllBelow},
    {"GET", "/element/:element/attribute/:name", SessionNeed::session, attribute},
    {"GET", "/element/:element/text", SessionNeed::session, text},
    {"GET", "/element/:element/name", SessionNeed::session, type},
    {"GET", "/element/:element/rect", SessionNeed::session, rect},
    {"GET", "/element/:element/enabled", SessionNeed::session, isEnabled},
    {"GET", "/element/:element/selected", SessionNeed::session, isSelected},
    {"GET", "/element/:element/displayed", SessionNeed::session, isDisplayed},
    {"GET", "/wda/element/:element/accessible", SessionNeed::session, isElementAccessible},
    {"GET", "/wda/element/:element/accessibilityContainer", SessionNeed::session, isElementAccessibilityContainer},
};

}  // namespace

std::span<const Route> elementRoutes() {
  return ROUTES;
}

}  // namespace quobrak::phoneserver
