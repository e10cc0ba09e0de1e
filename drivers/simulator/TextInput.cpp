#include "drivers/simulator/TextInput.h"

#include <cstddef>
#include <string>
#include <utility>

#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

namespace {

std::string textOf(const Element& field) {
  return field.secret.empty() ? field.value.value_or("") : field.secret;
}

std::string bullets(std::size_t count) {
  std::string text;
  for (std::size_t number = 0; number < count; ++number) {
    text += "•";
  }
  return text;
}

void removeLastCodePoint(std::string& text) {
  const auto isContinuation = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  while (text.size() > 1 && isContinuation(text.back())) {
    text.pop_back();
  }
  text.pop_back();
}

}  // namespace

bool takesText(ElementType type) {
  return type == ElementType::textField || type == ElementType::secureTextField || type == ElementType::searchField ||
         type == ElementType::textView;
}

bool holdsLines(ElementType type) {
  return type == ElementType::textView;
}

void setText(Element& field, std::string text) {
  const bool isSecure = field.type == ElementType::secureTextField;
  if (text.empty()) {
    field.value.reset();
  } else {
    field.value = isSecure ? bullets(characterCount(text)) : text;
  }
  field.secret = isSecure ? std::move(text) : "";
}

void insertText(Element& field, std::string_view text) {
  setText(field, textOf(field).append(text));
}

void deleteLastCharacter(Element& field) {
  std::string text = textOf(field);
  const std::size_t count = characterCount(text);
  while (!text.empty() && characterCount(text) == count) {
    removeLastCodePoint(text);
  }
  setText(field, std::move(text));
}

}  // namespace quobrak::simulator
