#include "drivers/simulator/ElementDescription.h"

#include "platform/uiautomation/QueryChain.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <unordered_map>

namespace quobrak::simulator {

namespace {

/// A number of points as descriptions show it.
std::string withOneDecimal(double number) {
  // The largest double has 309 digits before the point.
  std::array<char, 320> text{};
  const int length = std::snprintf(text.data(), text.size(), "%.1f", number);
  return {text.data(), static_cast<std::size_t>(length)};
}

std::string inBraces(double one, double other) {
  return "{" + withOneDecimal(one) + ", " + withOneDecimal(other) + "}";
}

void appendQuoted(std::string& text, std::string_view name, const std::string& value) {
  if (!value.empty()) {
    text.append(", ").append(name).append(": '").append(value).append("'");
  }
}

/// The first window of an application is its main one.
bool isMainWindow(const Element& element) {
  const Element* const parent = element.parent();
  if (parent == nullptr || parent->type != ElementType::application) {
    return false;
  }
  const auto& siblings = parent->children();
  const auto firstWindow = std::find_if(siblings.begin(), siblings.end(),
                                        [](const auto& sibling) { return sibling->type == ElementType::window; });
  return firstWindow != siblings.end() && firstWindow->get() == &element;
}

/// Stands in for the addresses that a phone shows: made from the element's place in its document, so that the same
/// screen gives the same text.
class Addresses {
 public:
  explicit Addresses(const Element& element) {
    const Element* root = &element;
    while (root->parent() != nullptr) {
      root = root->parent();
    }
    places_.emplace(root, 0);
    forEachDescendant(*root, [this](const Element& below) { places_.emplace(&below, places_.size()); });
  }

  std::string of(const Element& element) const {
    constexpr unsigned long long FIRST = 0x100000000;
    constexpr unsigned long long DISTANCE = 0x40;
    std::array<char, 24> text{};
    const int length = std::snprintf(text.data(), text.size(), "0x%llx", FIRST + DISTANCE * places_.at(&element));
    return {text.data(), static_cast<std::size_t>(length)};
  }

 private:
  std::unordered_map<const Element*, std::size_t> places_;
};

class DescriptionWriter {
 public:
  DescriptionWriter(const Element& element, int processIdentifier)
      : addresses_(element), processIdentifier_(processIdentifier) {}

  std::string line(const Element& element) const {
    std::string text(nameOf(element.type));
    text += isMainWindow(element) ? " (Main), " : ", ";
    text += addresses_.of(element);
    if (element.type == ElementType::application) {
      text += ", pid: " + std::to_string(processIdentifier_);
    } else {
      text += ", {" + inBraces(element.frame.origin.x, element.frame.origin.y) + ", " +
              inBraces(element.frame.size.width, element.frame.size.height) + "}";
    }
    appendQuoted(text, "identifier", element.identifier);
    appendQuoted(text, "label", element.label);
    appendQuoted(text, "placeholderValue", element.placeholder.value_or(""));
    if (element.value && !element.value->empty()) {
      text += ", value: " + *element.value;
    }
    text += element.hasKeyboardFocus ? ", Keyboard Focused" : "";
    text += element.isSelected ? ", Selected" : "";
    text += element.isEnabled ? "" : ", Disabled";
    return text + "\n";
  }

  std::string linesBelow(const Element& element, std::size_t indent) const {
    std::string text;
    for (const auto& child : element.children()) {
      text += std::string(indent, ' ') + line(*child) + linesBelow(*child, indent + 2);
    }
    return text;
  }

  std::string path(const Element& element) const {
    std::vector<const Element*> steps;
    for (const Element* step = &element; step != nullptr; step = step->parent()) {
      steps.insert(steps.begin(), step);
    }
    std::string text;
    for (std::size_t depth = 0; depth < steps.size(); ++depth) {
      text += std::string(depth + 1, ' ') + (depth == 0 ? "→" : "↳") + line(*steps[depth]);
    }
    return text;
  }

  /// What a step of the query found.
  std::string output(const std::vector<const Element*>& found, std::size_t indent) const {
    const std::string margin(indent, ' ');
    std::string text = margin + "Output: {\n";
    for (const Element* element : found) {
      text += margin + "  " + line(*element);
    }
    return text + margin + "}\n";
  }

 private:
  Addresses addresses_;
  int processIdentifier_;
};

}  // namespace

std::string debugDescription(const XCUIElement& description, std::span<const std::vector<const Element*>> stages,
                             int processIdentifier) {
  const Element& element = *stages.back().front();
  const DescriptionWriter writer(element, processIdentifier);
  const std::string line = writer.line(element);
  constexpr std::size_t FIRST_INDENT = 4;
  std::string text = "Attributes: " + line + "Element subtree:\n →" + line + writer.linesBelow(element, FIRST_INDENT) +
                     "Path to element:\n" + writer.path(element) + QUERY_CHAIN_TITLE;
  const std::vector<std::string> steps = queryChainSteps(description);
  for (std::size_t depth = 0; depth < steps.size(); ++depth) {
    text += steps[depth] + writer.output(stages[depth], 2 * depth + 2);
  }
  return text + "\n";
}

}  // namespace quobrak::simulator
