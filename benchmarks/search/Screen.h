#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "drivers/simulator/Element.h"

namespace quobrak::benchmarks {

/// What searches look at of an element.
struct ElementTexts {
  std::string label;
  std::string identifier;
  std::optional<std::string> placeholder;
  bool isEnabled;
};

/// A long list of a shop, the same one for the same number of elements: rows of a title, a line below it, a price, a
/// button and sometimes a field. A quarter of the texts is not ASCII, and an eighth of the elements is disabled.
std::unique_ptr<simulator::Element> listScreen(std::size_t elements);

/// Of all elements below the root, in document order.
std::vector<ElementTexts> textsOf(const simulator::Element& root);

/// The elements below the root as a page source: `label`, `identifier`, `placeholderValue` and `enabled`.
std::string pageSourceOf(const simulator::Element& root);

}  // namespace quobrak::benchmarks
