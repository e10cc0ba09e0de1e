#include "drivers/simulator/ElementAttributes.h"

#include <optional>
#include <string>
#include <variant>

namespace quobrak::simulator {

namespace {

using Value = KeyValueSource::Value;

Value valueOf(const std::optional<std::string>& text) {
  return text ? Value(std::string_view(*text)) : Value();
}

struct Attribute {
  std::string_view key;
  Value (*of)(const Element& element);
  /// What an absent element has.
  Value whereAbsent;
};

const Attribute ATTRIBUTES[] = {
    {"label", [](const Element& element) { return Value(std::string_view(element.label)); }, std::string_view()},
    {"identifier", [](const Element& element) { return Value(std::string_view(element.identifier)); },
     std::string_view()},
    {"placeholderValue", [](const Element& element) { return valueOf(element.placeholder); }, {}},
    {"value", [](const Element& element) { return valueOf(element.value); }, {}},
    {"enabled", [](const Element& element) { return Value(element.isEnabled); }, false},
    {"selected", [](const Element& element) { return Value(element.isSelected); }, false},
    {"exists", [](const Element&) { return Value(true); }, false},
};

}  // namespace

KeyValueSource::Value ElementAttributes::valueForKey(std::string_view key) const {
  if (key == "hittable") {
    return element_ != nullptr && isHittable_(*element_);
  }
  for (const Attribute& attribute : ATTRIBUTES) {
    if (attribute.key == key) {
      return element_ == nullptr ? attribute.whereAbsent : attribute.of(*element_);
    }
  }
  std::string known;
  for (const Attribute& attribute : ATTRIBUTES) {
    known += std::string(attribute.key) + ", ";
  }
  throw UnknownAttributeError("elements have no attribute \"" + std::string(key) + "\"; they have " + known +
                              "hittable");
}

void requireKnownAttributes(const NSPredicate& predicate) {
  if (const auto* const compound = std::get_if<NSPredicate::Compound>(&predicate.node())) {
    for (const NSPredicate& part : compound->parts) {
      requireKnownAttributes(part);
    }
    return;
  }
  const auto& comparison = std::get<NSPredicate::Comparison>(predicate.node());
  const std::function<bool(const Element&)> never = [](const Element&) { return false; };
  const ElementAttributes absent(nullptr, never);
  for (const NSPredicate::Operand* const operand : {&comparison.left, &comparison.right}) {
    if (const auto* const keyPath = std::get_if<NSPredicate::KeyPath>(operand)) {
      absent.valueForKey(keyPath->name);
    }
  }
}

}  // namespace quobrak::simulator
