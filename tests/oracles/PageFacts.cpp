#include "tests/oracles/PageFacts.h"

#include <utility>

namespace quobrak::oracles {

namespace {

/// Servers may wrap the page in an element of this name.
constexpr const char* ELEMENTS = "//*[not(self::AppiumAUT)]";
constexpr const char* DEPTH = "count(ancestor::*[not(self::AppiumAUT)])";

// XPath has no choice between two texts, but a substring from the position 1 div true() is the whole text, and one from
// 1 div false(), which is infinite, is empty.

constexpr const char* TYPE = "concat(@type, substring(name(), 1 div not(@type)))";
constexpr const char* WITHOUT_PREFIX =
    "concat(substring-after($type, 'XCUIElementType'), substring($type, 1 div not(starts-with($type, "
    "'XCUIElementType'))))";
/// A name that is the label's is the label's alone.
constexpr const char* IDENTIFIER =
    "concat(@identifier, substring(@name, 1 div (not(@identifier) and not(string(@name) = string(@label)))))";

/// A number that is missing is 0, one like "inf" is none.
double number(XPathDocument& document, xmlNode* element, const std::string& attribute) {
  return std::stod(document.textAt(element, "sum(@" + attribute + ")"));
}

bool holds(XPathDocument& document, xmlNode* element, const std::string& condition) {
  return document.textAt(element, condition) == "true";
}

ElementFacts factsOf(XPathDocument& document, xmlNode* element) {
  document.setVariable("type", document.textAt(element, TYPE));
  ElementFacts facts{
      .node = element,
      .type = document.textAt(element, WITHOUT_PREFIX),
      .label = document.textAt(element, "@label"),
      .identifier = document.textAt(element, IDENTIFIER),
      .placeholder = {},
      .isEnabled = !holds(document, element, "@enabled = 'false'"),
      .isVisible = !holds(document, element, "@visible = 'false'"),
      .frame = {{number(document, element, "x"), number(document, element, "y")},
                {number(document, element, "width"), number(document, element, "height")}},
      .depth = static_cast<std::size_t>(std::stoul(document.textAt(element, DEPTH))),
  };
  if (holds(document, element, "boolean(@placeholderValue)")) {
    facts.placeholder = document.textAt(element, "@placeholderValue");
  }
  return facts;
}

}  // namespace

PageFacts factsOf(XPathDocument& document) {
  PageFacts page;
  for (xmlNode* const element : document.select(document.root(), ELEMENTS)) {
    ElementFacts facts = factsOf(document, element);
    if (page.elements.empty() && !page.application && facts.type == "Application") {
      page.application = std::move(facts);
    } else {
      page.elements.push_back(std::move(facts));
    }
  }
  return page;
}

}  // namespace quobrak::oracles
