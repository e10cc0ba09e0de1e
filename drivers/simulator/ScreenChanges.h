#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/NamedValues.h"
#include "drivers/simulator/Rule.h"
#include "platform/foundation/PredicateEvaluator.h"

/// What effects of rules do to the tree of a screen.
namespace quobrak::simulator {

/// Whether the predicate of a rule picks the element. An application knows what is typed into its secure fields, so to
/// it that is their value. Throws `RegularExpressionError` where a pattern backtracks for ever.
bool matches(const Element& element, const PredicateEvaluator& predicate);

/// The elements below `root` that the predicate picks, in document order. Throws as `matches`.
std::vector<Element*> elementsMatching(Element& root, const PredicateEvaluator& predicate);

/// The element of that number below `root`; null where there is none.
Element* elementNumbered(Element& root, std::uint64_t number);

/// What rules can ask of an element by name.
struct ElementTexts {
  std::string label;
  std::string identifier;
  /// What was typed, even into a secure field.
  std::string value;
  std::string placeholder;

  /// `attribute` is "label", "identifier", "value" or "placeholderValue".
  const std::string& of(std::string_view attribute) const;
};

/// All are empty for null.
ElementTexts textsOf(const Element* element);

/// Gives the element other attributes. It is moved with all that is in it, and shown or hidden with all that is in it.
void change(Element& element, const ChangeElements& changes, const NamedValues& values);

/// Adds copies of the fragment's children to `parent`. Returns the numbers of the copies.
std::vector<std::uint64_t> insertCopies(const Element& fragment, Element& parent, Insertion insertion);

}  // namespace quobrak::simulator
