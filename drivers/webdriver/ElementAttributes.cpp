#include "drivers/webdriver/ElementAttributes.h"

#include <string>
#include <variant>

namespace quobrak::webdriver {

namespace {

KeyValueSource::Value valueIn(const std::optional<std::string>& text) {
  return text ? KeyValueSource::Value(std::string_view(*text)) : KeyValueSource::Value();
}

}  // namespace

KeyValueSource::Value ElementAttributes::valueForKey(std::string_view key) const {
  static const FoundElement ABSENT{.isEnabled = false};
  const FoundElement& element = element_ ? *element_ : ABSENT;
  if (key == "exists") {
    return element_.has_value();
  }
  if (key == "hittable") {
    return isHittable_();
  }
  if (key == "label") {
    return std::string_view(element.label);
  }
  if (key == "identifier") {
    return std::string_view(element.identifier);
  }
  if (key == "placeholderValue") {
    return valueIn(element.placeholder);
  }
  if (key == "value") {
    const auto* const text = std::get_if<std::string>(&element.value);
    return text == nullptr ? Value() : Value(std::string_view(*text));
  }
  return key == "enabled" ? element.isEnabled : element.isSelected;
}

}  // namespace quobrak::webdriver
