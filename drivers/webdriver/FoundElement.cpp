#include "drivers/webdriver/FoundElement.h"

#include <string_view>
#include <utility>
#include <variant>

#include "drivers/webdriver/CommandError.h"
#include "drivers/webdriver/PathSegment.h"

namespace quobrak::webdriver {

namespace {

constexpr std::string_view ELEMENT_KEY = "element-6066-11e4-a52e-4f735466cecf";
constexpr std::string_view TYPE_PREFIX = "XCUIElementType";

[[noreturn]] void failAsNonsense(const std::string& what) {
  throw CommandError(Fault::nonsense, "the server answered a look-up with what is none: " + what);
}

/// The members of one element's description.
class Members {
 public:
  explicit Members(const JSONValue& value) : object_(std::get_if<JSONValue::Object>(&value.variant())) {
    if (object_ == nullptr) {
      failAsNonsense("an element is no object");
    }
  }

  const JSONValue& operator[](std::string_view name) const {
    static const JSONValue NONE;
    const auto member = object_->find(name);
    return member == object_->end() ? NONE : member->second;
  }

  std::optional<std::string> text(std::string_view name) const {
    const auto* const text = std::get_if<std::string>(&(*this)[name].variant());
    return text == nullptr ? std::nullopt : std::optional(*text);
  }

 private:
  const JSONValue::Object* object_;
};

double numberOf(const JSONValue& value) {
  if (const auto* const whole = std::get_if<std::int64_t>(&value.variant())) {
    return static_cast<double>(*whole);
  }
  const auto* const number = std::get_if<double>(&value.variant());
  return number == nullptr ? 0 : *number;
}

ElementType typeOf(const Members& members) {
  const std::string name = members.text("type").value_or("");
  const std::string_view known(name);
  return known.starts_with(TYPE_PREFIX)
             ? elementTypeNamed(known.substr(TYPE_PREFIX.size())).value_or(ElementType::other)
             : ElementType::other;
}

/// A static text without a value has its label as value on the wire, and a selected button has "1".
bool isStandIn(const FoundElement& element, const std::string& value) {
  return (element.type == ElementType::staticText && value == element.label) ||
         (element.type == ElementType::button && element.isSelected && value == "1");
}

ElementValue valueOf(const FoundElement& element, const JSONValue& value) {
  if (std::holds_alternative<std::nullptr_t>(value.variant())) {
    return {};
  }
  const auto* const text = std::get_if<std::string>(&value.variant());
  if (text == nullptr) {
    return OtherValue{};
  }
  return isStandIn(element, *text) ? ElementValue() : ElementValue(*text);
}

std::string idIn(const Members& members) {
  std::optional<std::string> id = members.text(ELEMENT_KEY);
  if (!id) {
    id = members.text("ELEMENT");
  }
  if (!id || id->empty()) {
    failAsNonsense("an element has no id");
  }
  if (!isPathSegment(*id)) {
    failAsNonsense("an element has the id \"" + *id + "\", which cannot stand in a path");
  }
  return *id;
}

FoundElement elementIn(const JSONValue& value) {
  const Members members(value);
  FoundElement element{.id = idIn(members),
                       .type = typeOf(members),
                       .label = members.text("label").value_or(""),
                       .placeholder = members.text("attribute/placeholderValue"),
                       .isEnabled = truthOf(members["enabled"]),
                       .isSelected = truthOf(members["selected"]),
                       .isHittable = truthOf(members["attribute/hittable"]),
                       .frame = rectIn(members["rect"])};
  // The name is the identifier or, where that is empty, the label.
  const std::string name = members.text("attribute/name").value_or("");
  element.identifier = name == element.label ? "" : name;
  element.value = valueOf(element, members["attribute/value"]);
  return element;
}

}  // namespace

bool truthOf(const JSONValue& value) {
  if (const bool* const truth = std::get_if<bool>(&value.variant())) {
    return *truth;
  }
  if (const auto* const text = std::get_if<std::string>(&value.variant())) {
    return *text == "true" || *text == "1";
  }
  return numberOf(value) != 0;
}

Rect rectIn(const JSONValue& value) {
  if (!std::holds_alternative<JSONValue::Object>(value.variant())) {
    return {};
  }
  const Members members(value);
  return {{numberOf(members["x"]), numberOf(members["y"])}, {numberOf(members["width"]), numberOf(members["height"])}};
}

std::vector<FoundElement> foundElements(const JSONValue& reply) {
  const auto* const array = std::get_if<JSONValue::Array>(&reply.variant());
  if (array == nullptr) {
    failAsNonsense("no list");
  }
  std::vector<FoundElement> elements;
  elements.reserve(array->size());
  for (const JSONValue& value : *array) {
    elements.push_back(elementIn(value));
  }
  return elements;
}

}  // namespace quobrak::webdriver
