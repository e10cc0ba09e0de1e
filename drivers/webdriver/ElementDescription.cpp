#include "drivers/webdriver/ElementDescription.h"

#include <array>
#include <charconv>
#include <variant>

namespace quobrak::webdriver {

namespace {

constexpr const char* INDENT = "    ";

std::string number(double value) {
  constexpr int DECIMALS = 1;
  // The largest double has 309 digits before the point.
  std::array<char, 320> text{};
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, DECIMALS);
  return {text.data(), end};
}

std::string pair(double first, double second) {
  return "{" + number(first) + ", " + number(second) + "}";
}

std::string quoted(const std::string& name, const std::string& text) {
  return text.empty() ? "" : ", " + name + ": '" + text + "'";
}

std::string line(const FoundElement& element) {
  std::string text(nameOf(element.type));
  const Rect& frame = element.frame;
  text += ", {" + pair(frame.origin.x, frame.origin.y) + ", " + pair(frame.size.width, frame.size.height) + "}";
  text += quoted("identifier", element.identifier) + quoted("label", element.label) +
          quoted("placeholderValue", element.placeholder.value_or(""));
  if (const auto* const value = std::get_if<std::string>(&element.value)) {
    text += ", value: " + *value;
  }
  return text + (element.isSelected ? ", Selected" : "") + (element.isEnabled ? "" : ", Disabled") + "\n";
}

std::string head(const FoundElement& element) {
  return "Attributes: " + line(element) + "Element subtree:\n →" + line(element);
}

}  // namespace

std::string description(const FoundElement& application, const std::string& subtree) {
  std::string text = head(application);
  bool isAtLineStart = true;
  for (const char character : subtree) {
    if (isAtLineStart) {
      text += INDENT;
    }
    text += character;
    isAtLineStart = character == '\n';
  }
  return text + (isAtLineStart ? "" : "\n");
}

std::string description(const FoundElement& element, const std::vector<FoundElement>& below) {
  std::string text = head(element);
  for (const FoundElement& one : below) {
    text += INDENT + line(one);
  }
  return text;
}

}  // namespace quobrak::webdriver
