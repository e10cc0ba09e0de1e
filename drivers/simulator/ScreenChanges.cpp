#include "drivers/simulator/ScreenChanges.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <utility>

#include "drivers/simulator/ElementAttributes.h"
#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Scrolling.h"
#include "drivers/simulator/TextInput.h"

namespace quobrak::simulator {

namespace {

/// An element as its own application sees it.
class OwnElement final : public KeyValueSource {
 public:
  explicit OwnElement(const Element& element) : element_(element) {}

  Value valueForKey(std::string_view key) const override {
    static const std::function<bool(const Element&)> HITTABLE = isHittable;
    const bool isSecret = key == "value" && !element_.secret.empty();
    return isSecret ? Value(std::string_view(element_.secret))
                    : ElementAttributes(&element_, HITTABLE).valueForKey(key);
  }

 private:
  const Element& element_;
};

std::optional<std::string> expanded(const AttributeText& text, const NamedValues& values) {
  return text.text ? std::optional(text.text->expand(values)) : std::nullopt;
}

void setVisible(Element& element, bool isVisible) {
  element.isHidden = !isVisible;
  forEachDescendant(element, [isVisible](Element& below) { below.isHidden = !isVisible; });
}

/// How far content lies from where its page source has it.
FingerMove scrolledAround(const Element& parent) {
  FingerMove move;
  for (const Element* around = &parent; around != nullptr; around = around->parent()) {
    move.dx += around->scrolled.x;
    move.dy += around->scrolled.y;
  }
  return move;
}

double upperEdgeOf(const Element& fragment) {
  double edge = std::numeric_limits<double>::infinity();
  for (const auto& child : fragment.children()) {
    edge = std::min(edge, child->frame.origin.y);
  }
  return edge;
}

}  // namespace

bool matches(const Element& element, const PredicateEvaluator& predicate) {
  return predicate.evaluate(OwnElement(element));
}

std::vector<Element*> elementsMatching(Element& root, const PredicateEvaluator& predicate) {
  std::vector<Element*> found;
  forEachDescendant(root, [&](Element& element) {
    if (matches(element, predicate)) {
      found.push_back(&element);
    }
  });
  return found;
}

Element* elementNumbered(Element& root, std::uint64_t number) {
  Element* found = nullptr;
  forEachDescendant(root, [&](Element& element) { found = element.number == number ? &element : found; });
  return found;
}

const std::string& ElementTexts::of(std::string_view attribute) const {
  if (attribute == "label") {
    return label;
  }
  if (attribute == "identifier") {
    return identifier;
  }
  return attribute == "value" ? value : placeholder;
}

ElementTexts textsOf(const Element* element) {
  if (element == nullptr) {
    return {};
  }
  return {.label = element->label,
          .identifier = element->identifier,
          .value = element->secret.empty() ? element->value.value_or("") : element->secret,
          .placeholder = element->placeholder.value_or("")};
}

void change(Element& element, const ChangeElements& changes, const NamedValues& values) {
  if (changes.label) {
    element.label = expanded(*changes.label, values).value_or("");
  }
  if (changes.identifier) {
    element.identifier = expanded(*changes.identifier, values).value_or("");
  }
  if (changes.value && takesText(element.type)) {
    setText(element, expanded(*changes.value, values).value_or(""));
  } else if (changes.value) {
    element.value = expanded(*changes.value, values);
  }
  if (changes.placeholder) {
    element.placeholder = expanded(*changes.placeholder, values);
  }
  element.isEnabled = changes.isEnabled.value_or(element.isEnabled);
  element.isSelected = changes.isSelected.value_or(element.isSelected);
  if (changes.isVisible) {
    setVisible(element, *changes.isVisible);
  }
  const Rect& frame = element.frame;
  shift(element, {.dx = changes.x.value_or(frame.origin.x) - frame.origin.x,
                  .dy = changes.y.value_or(frame.origin.y) - frame.origin.y});
  element.frame.size = {changes.width.value_or(frame.size.width), changes.height.value_or(frame.size.height)};
}

std::vector<std::uint64_t> insertCopies(const Element& fragment, Element& parent, Insertion insertion) {
  FingerMove move = scrolledAround(parent);
  if (insertion == Insertion::atEnd) {
    move.dy = lowerEdgeOfContent(parent) - upperEdgeOf(fragment);
  }
  std::vector<std::uint64_t> numbers;
  for (const auto& child : fragment.children()) {
    Element& copy = parent.append(child->copy());
    shift(copy, move);
    numbers.push_back(copy.number);
  }
  return numbers;
}

}  // namespace quobrak::simulator
