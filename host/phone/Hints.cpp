#include "host/phone/Hints.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string_view>
#include <vector>

#include "drivers/simulator/Element.h"
#include "host/terminal/NearestNames.h"
#include "host/terminal/Terminal.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::host {

using simulator::Element;

namespace {

/// What the selector is compared with.
std::vector<std::string_view> textsOf(const Element& element, SelectorKind kind) {
  switch (kind) {
    case SelectorKind::text:
    case SelectorKind::textExact:
      return {element.label, element.identifier, element.placeholder ? std::string_view(*element.placeholder) : ""};
    case SelectorKind::label:
    case SelectorKind::labelExact:
      return {element.label};
    case SelectorKind::field:
    case SelectorKind::fieldExact:
      return {element.identifier};
    case SelectorKind::className:
    case SelectorKind::predicate:
      return {};
  }
  return {};
}

/// Whether a part of a text is enough.
bool takesParts(SelectorKind kind) {
  return kind == SelectorKind::text || kind == SelectorKind::label || kind == SelectorKind::field;
}

void addWords(std::string_view text, std::set<std::string_view>& words) {
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    words.insert(word);
  }
}

std::string likeTexts(const Selector& selector, const Element& root) {
  std::set<std::string_view> texts;
  simulator::forEachDescendant(root, [&](const Element& element) {
    for (const std::string_view text : textsOf(element, selector.kind)) {
      texts.insert(text);
      if (takesParts(selector.kind)) {
        addWords(text, texts);
      }
    }
  });
  texts.erase("");
  if (takesParts(selector.kind)) {
    // Spelt right, but of an element that is not looked for.
    const FoldedText folded = caseFolded(selector.text);
    std::erase_if(texts, [&folded](std::string_view text) { return contains(caseFolded(text), folded); });
  }
  const std::vector<std::string_view> all(texts.begin(), texts.end());
  const std::string question = shown(didYouMean(nearestNames(selector.text, all)));
  return question.empty() ? "" : "There is something like it: " + question + "\n";
}

std::string countedBy(const Selector& selector, ShownScreen& screen) {
  const std::size_t count = screen.elements(queryOf(selector, screen.identifier())).size();
  return count == 0 ? "" : written(selector) + " would find " + std::to_string(count) + ".\n";
}

}  // namespace

std::string hintsFor(const Selector& selector, ShownScreen& screen) {
  std::string hints = screen.root() == nullptr ? "" : likeTexts(selector, *screen.root());
  for (const Selector& relative : relatives(selector)) {
    hints += countedBy(relative, screen);
  }
  return hints;
}

}  // namespace quobrak::host
