#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tests/oracles/PageFacts.h"
#include "tests/oracles/XPathDocument.h"

namespace quobrak::oracles {

/// Elements by their place in the page, in document order.
using Places = std::vector<std::size_t>;

/// What searches on a page source must find: XPath over the same document.
class SearchOracle {
 public:
  explicit SearchOracle(std::string_view pageSource);

  const std::vector<ElementFacts>& elements() const { return facts_.elements; }

  /// The distinct texts of all elements, in ascending order: labels, names, identifiers and placeholders.
  std::vector<std::string> texts();
  /// The distinct types of all elements, in ascending order.
  std::vector<std::string> types() const;

  /// The elements of which the label, the identifier or the placeholder contains the text, in any case. It must not be
  /// empty, and all of it the alphabets.
  Places containing(const std::string& text);
  /// Those of which one is the text.
  Places having(const std::string& text);
  Places ofType(const std::string& type);
  /// The static texts in the element at the place whose label contains the text, in any case. An empty text is
  /// contained in all; else it must be all of it the alphabets.
  Places staticTextsIn(std::size_t place, const std::string& text = "");

  /// Those of the elements that are enabled, or those that are not.
  Places inState(const Places& places, bool isEnabled) const;

  /// Whether it can be told here what texts the element contains in any case.
  bool canFold(std::size_t place) const;

  /// Half of the text's characters, from its middle; all of them where there is but one.
  std::string middleOf(const std::string& text);
  /// The text with its small letters as capitals and the other way round.
  std::string inOtherCase(const std::string& text);

 private:
  void note(const ElementFacts& element);
  Places placesOf(const std::vector<xmlNode*>& elements) const;
  /// The elements for which the condition holds, of those of the selection.
  Places selected(const std::string& selection, const std::string& condition);
  std::string valueOf(const std::string& expression, const std::string& text);

  XPathDocument document_;
  PageFacts facts_;
  std::unordered_map<const xmlNode*, std::size_t> places_;
};

}  // namespace quobrak::oracles
