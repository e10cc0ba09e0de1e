#include "phoneserver/ElementReplies.h"

#include <optional>
#include <string>
#include <string_view>

#include "phoneserver/Lists.h"
#include "phoneserver/WireAttributes.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

constexpr std::string_view ATTRIBUTE = "attribute/";

JSONValue json(const std::optional<std::string_view>& text) {
  return text ? JSONValue(*text) : JSONValue();
}

/// None for a field that replies do not have.
std::optional<JSONValue> field(const ServedPhone& served, const Element& element, std::string_view name) {
  if (name.starts_with(ATTRIBUTE)) {
    return attributeOf(served, element, name.substr(ATTRIBUTE.size()));
  }
  if (name == "name" || name == "type") {
    return wireTypeOf(element.type);
  }
  if (name == "label") {
    return json(wireLabelOf(element));
  }
  if (name == "text") {
    return wireTextOf(element);
  }
  if (name == "rect") {
    return jsonOf(wireRectOf(element));
  }
  if (name == "enabled") {
    return element.isEnabled;
  }
  if (name == "displayed") {
    return served.isVisible(element);
  }
  return name == "selected" ? std::optional<JSONValue>(element.isSelected) : std::nullopt;
}

}  // namespace

JSONValue elementReply(ServedPhone& served, const Element& element) {
  SessionState& session = *served.session();
  const std::string id = session.elements.idOf(element.number);
  JSONValue::Object reply{{"ELEMENT", id}, {"element-6066-11e4-a52e-4f735466cecf", id}};
  if (!session.settings.truth("shouldUseCompactResponses")) {
    for (const std::string& name : commaSeparated(session.settings.text("elementResponseAttributes"))) {
      if (std::optional<JSONValue> value = field(served, element, name)) {
        reply.insert_or_assign(name, *std::move(value));
      }
    }
  }
  return reply;
}

}  // namespace quobrak::phoneserver
