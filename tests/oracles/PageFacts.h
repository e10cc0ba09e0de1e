#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/uiautomation/Geometry.h"
#include "tests/oracles/XPathDocument.h"

namespace quobrak::oracles {

/// What a page source says of one element, as XPath reads it.
struct ElementFacts {
  xmlNode* node;
  /// Without the prefix: "Button".
  std::string type;
  std::string label;
  std::string identifier;
  std::optional<std::string> placeholder;
  bool isEnabled;
  /// What the page source claims; true where it claims nothing.
  bool isVisible;
  Rect frame;
  /// How many elements it lies in.
  std::size_t depth;
};

/// The application of a page source, and the elements in it. An element's place is its position among these, from 0.
struct PageFacts {
  /// None where the page has no Application around its elements.
  std::optional<ElementFacts> application;
  /// In document order.
  std::vector<ElementFacts> elements;
};

PageFacts factsOf(XPathDocument& document);

}  // namespace quobrak::oracles
