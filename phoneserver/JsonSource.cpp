#include "phoneserver/JsonSource.h"

#include <optional>
#include <string_view>

#include "phoneserver/WireAttributes.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

JSONValue json(const std::optional<std::string_view>& text) {
  return text ? JSONValue(*text) : JSONValue();
}

/// Truth values are texts in this format.
JSONValue jsonTruth(bool truth) {
  return truth ? "1" : "0";
}

std::string frameText(const WireRect& rect) {
  return "{{" + std::to_string(rect.x) + ", " + std::to_string(rect.y) + "}, {" + std::to_string(rect.width) + ", " +
         std::to_string(rect.height) + "}}";
}

JSONValue::Object attributes(const SearchScope& scope, const Element& element) {
  const WireRect rect = wireRectOf(element);
  const bool hasIdentifier = !element.identifier.empty();
  return {{"type", nameOf(element.type)},
          {"rawIdentifier", hasIdentifier ? JSONValue(element.identifier) : JSONValue()},
          {"name", json(wireNameOf(element))},
          {"value", json(wireValueOf(element))},
          {"label", json(wireLabelOf(element))},
          {"placeholderValue", json(wirePlaceholderOf(element))},
          {"rect", jsonOf(rect)},
          {"frame", frameText(rect)},
          {"isEnabled", jsonTruth(element.isEnabled)},
          {"isVisible", jsonTruth(scope.served.isVisible(element))},
          {"isAccessible", jsonTruth(isAccessible(element))},
          {"isFocused", jsonTruth(element.hasKeyboardFocus)}};
}

/// Clients leave out an attribute by the name that predicates have for it.
std::string keyOf(const std::string& excluded) {
  for (const std::string_view key : {"isEnabled", "isVisible", "isAccessible", "isFocused"}) {
    constexpr std::size_t PREFIX = 2;
    constexpr char CASE = 'a' - 'A';
    const std::string name = static_cast<char>(key[PREFIX] + CASE) + std::string(key.substr(PREFIX + 1));
    if (excluded == name) {
      return std::string(key);
    }
  }
  return excluded;
}

JSONValue tree(const SearchScope& scope, const std::vector<std::string>& excludedKeys, const Element& element,
               int depth) {
  JSONValue::Object node = attributes(scope, element);
  for (const std::string& key : excludedKeys) {
    node.erase(key);
  }
  if (depth < scope.deepest && !element.children().empty()) {
    JSONValue::Array children;
    for (const auto& child : element.children()) {
      children.push_back(tree(scope, excludedKeys, *child, depth + 1));
    }
    node.emplace("children", std::move(children));
  }
  return node;
}

}  // namespace

JSONValue jsonSource(const SearchScope& scope, const std::vector<std::string>& excluded) {
  std::vector<std::string> keys;
  keys.reserve(excluded.size());
  for (const std::string& name : excluded) {
    keys.push_back(keyOf(name));
  }
  return tree(scope, keys, scope.root, 0);
}

}  // namespace quobrak::phoneserver
