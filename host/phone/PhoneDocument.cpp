#include "host/phone/PhoneDocument.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "host/phone/Reach.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::host {

using simulator::Element;

namespace {

/// Null where it is not finite, which JSON cannot say.
JSONValue number(double points) {
  return std::isfinite(points) ? JSONValue(points) : JSONValue();
}

JSONValue textOrNull(const std::optional<std::string>& text) {
  return text ? JSONValue(*text) : JSONValue();
}

JSONValue applicationDocument(const simulator::ApplicationDescription& application) {
  JSONValue::Array screens;
  for (const auto& [name, screen] : application.screens) {
    screens.emplace_back(name);
  }
  return JSONValue::Object{{"bundleIdentifier", application.bundleIdentifier},
                           {"name", application.name},
                           {"firstScreen", application.firstScreen},
                           {"launchTime", std::int64_t{application.launchTime.count()}},
                           {"screens", std::move(screens)},
                           {"rules", static_cast<std::int64_t>(application.rules.size())}};
}

JSONValue elementDocument(const Element& element, const ShownScreen& screen) {
  JSONValue::Array children;
  for (const auto& child : element.children()) {
    children.push_back(elementDocument(*child, screen));
  }
  const Rect& frame = element.frame;
  return JSONValue::Object{{"type", nameOf(element.type)},
                           {"label", element.label},
                           {"identifier", element.identifier},
                           {"value", textOrNull(element.value)},
                           {"placeholderValue", textOrNull(element.placeholder)},
                           {"enabled", element.isEnabled},
                           {"selected", element.isSelected},
                           {"focused", element.hasKeyboardFocus},
                           {"hittable", screen.isHittable(element)},
                           {"obstacle", remarkOn(obstacleTo(element, screen))},
                           {"frame", JSONValue::Object{{"x", number(frame.origin.x)},
                                                       {"y", number(frame.origin.y)},
                                                       {"width", number(frame.size.width)},
                                                       {"height", number(frame.size.height)}}},
                           {"children", std::move(children)}};
}

/// The indices of the children that lead to the element.
JSONValue::Array pathTo(const Element& element) {
  JSONValue::Array path;
  for (const Element* step = &element; step->parent() != nullptr; step = step->parent()) {
    const auto& siblings = step->parent()->children();
    const auto found =
        std::find_if(siblings.begin(), siblings.end(), [step](const auto& sibling) { return sibling.get() == step; });
    path.emplace_back(std::int64_t{found - siblings.begin()});
  }
  std::reverse(path.begin(), path.end());
  return path;
}

JSONValue selectorDocument(const Selector& selector) {
  return JSONValue::Object{{"option", optionOf(selector.kind)},
                           {"text", repairedUTF8(selector.text)},
                           {"enabled", asksForState(selector.kind) ? JSONValue(selector.isEnabled) : JSONValue()}};
}

}  // namespace

JSONValue phoneDocument(const simulator::PhoneDescription& phone) {
  JSONValue::Array applications;
  for (const auto& [identifier, application] : phone.applications) {
    applications.push_back(applicationDocument(application));
  }
  JSONValue::Object values;
  for (const auto& [name, text] : phone.values.texts()) {
    values.emplace(name, text);
  }
  return JSONValue::Object{{"name", phone.name},
                           {"size", JSONValue::Object{{"width", phone.size.width}, {"height", phone.size.height}}},
                           {"scale", phone.scale},
                           {"systemVersion", phone.systemVersion},
                           {"volume", phone.volume},
                           {"delays", JSONValue::Object{{"touch", std::int64_t{phone.touchDelay.count()}},
                                                        {"button", std::int64_t{phone.buttonDelay.count()}},
                                                        {"scroll", std::int64_t{phone.scrollDelay.count()}}}},
                           {"values", std::move(values)},
                           {"home", phone.home},
                           {"applications", std::move(applications)}};
}

JSONValue screenDocument(const ShownScreen& screen, const std::optional<Selector>& selector, const Elements& matches) {
  JSONValue::Array found;
  for (const Element* match : matches) {
    found.emplace_back(JSONValue::Object{{"rank", static_cast<std::int64_t>(found.size() + 1)},
                                         {"path", pathTo(*match)},
                                         {"label", match->label},
                                         {"tap", fateOfTap(*match, screen)}});
  }
  const Element* const alert = screen.systemAlert();
  JSONValue::Object document{
      {"application", screen.identifier()},
      {"screen", screen.root() == nullptr ? JSONValue() : JSONValue(screen.name())},
      {"frontApplication", screen.frontIdentifier()},
      {"systemAlert", alert == nullptr ? JSONValue() : JSONValue(alert->label)},
      {"tree", screen.root() == nullptr ? JSONValue() : elementDocument(*screen.root(), screen)}};
  if (selector) {
    document.emplace("selector", selectorDocument(*selector));
    document.emplace("matches", std::move(found));
  }
  return document;
}

}  // namespace quobrak::host
