#include "phoneserver/KeyRoutes.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "drivers/simulator/HitTest.h"
#include "phoneserver/Targets.h"
#include "phoneserver/WireAttributes.h"
#include "phoneserver/WireError.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

/// Where what is typed without naming an element goes.
const Element& frontScreen(const ServedPhone& served) {
  return *served.phone().layers().front();
}

void touch(ServedPhone& served, const Element& element) {
  if (const std::optional<Point> point = simulator::hitPoint(element)) {
    served.phone().touch(*point, Seconds::zero());
  }
}

/// Types into the element, which is touched first where it has not the focus.
void typeInto(ServedPhone& served, const Call& call, const std::string& text) {
  const Element& element = targetElement(served, call);
  const ElementType type = element.type;
  if (served.phone().type(element, text)) {
    return;
  }
  touch(served, element);
  if (!served.phone().type(targetElement(served, call), text)) {
    throw WireError(WireErrorCode::invalidElementState,
                    "the element, an " + wireTypeOf(type) + ", does not take the keyboard's focus when it is touched");
  }
}

JSONValue typeIntoElement(ServedPhone& served, const Call& call) {
  typeInto(served, call, call.arguments.typedText());
  return {};
}

JSONValue clear(ServedPhone& served, const Call& call) {
  constexpr char DELETE_KEY = '\b';
  const std::string present = targetElement(served, call).value.value_or("");
  typeInto(served, call, std::string(characterCount(present), DELETE_KEY));
  return {};
}

JSONValue typeIntoFocus(ServedPhone& served, const Call& call) {
  const std::string text = call.arguments.typedText();
  if (!served.phone().type(frontScreen(served), text)) {
    throw WireError(WireErrorCode::invalidElementState, "no element has the keyboard's focus");
  }
  return {};
}

const Element* keyboardOn(const Element& screen) {
  const Element* keyboard = nullptr;
  forEachDescendant(screen, [&keyboard](const Element& element) {
    if (element.type == ElementType::keyboard) {
      keyboard = &element;
    }
  });
  return keyboard;
}

std::vector<std::string> keyNames(const Arguments& arguments) {
  std::vector<std::string> names;
  const std::optional<JSONValue::Array> sent = arguments.optionalArray("keyNames");
  for (const JSONValue& name : sent.value_or(JSONValue::Array())) {
    names.push_back(Arguments({{"keyNames", name}}).text("keyNames"));
  }
  return names;
}

JSONValue dismissKeyboard(ServedPhone& served, const Call& call) {
  const std::vector<std::string> names = keyNames(call.arguments);
  const Element* const keyboard = keyboardOn(frontScreen(served));
  if (keyboard == nullptr) {
    return {};
  }
  const Element* key = nullptr;
  forEachDescendant(*keyboard, [&](const Element& element) {
    const auto isNamed = [&element](const std::string& name) { return wireNameOf(element) == name; };
    if (key == nullptr && std::any_of(names.begin(), names.end(), isNamed)) {
      key = &element;
    }
  });
  if (key == nullptr) {
    throw WireError(WireErrorCode::invalidElementState,
                    "the keyboard has none of these keys: name one of its keys that ends the typing in \"keyNames\"");
  }
  touch(served, *key);
  return {};
}

constexpr Route ROUTES[] = {
    {"POST", "/element/:element/value", SessionNeed::session, typeIntoElement},
    {"POST", "/element/:element/clear", SessionNeed::session, clear},
    {"POST", "/wda/keys", SessionNeed::session, typeIntoFocus},
    {"POST", "/wda/keyboard/dismiss", SessionNeed::session, dismissKeyboard},
};

}  // namespace

std::span<const Route> keyRoutes() {
  return ROUTES;
}

}  // namespace quobrak::phoneserver
