#pragma once

#include <libxml/tree.h>
#include <libxml/xpath.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::oracles {

/// An XML document that XPath is asked about, by a library that the system itself uses neither to read XML nor to
/// search it: so a fault in either shows as a difference.
class XPathDocument {
 public:
  /// Throws `std::runtime_error` where the text is not well-formed.
  explicit XPathDocument(std::string_view xml);

  xmlNode* root() const { return xmlDocGetRootElement(document_.get()); }

  /// Gives `$name` of later expressions its value: a text.
  void setVariable(const std::string& name, const std::string& text);
  /// The same for what the expression selects in the document.
  void setSelection(const std::string& name, const std::string& expression);

  /// The elements that the expression selects from `element` on, in document order. They belong to the document.
  std::vector<xmlNode*> select(xmlNode* element, const std::string& expression);

  /// The value of the expression at the element, as a text.
  std::string textAt(xmlNode* element, const std::string& expression);

  static void setAttribute(xmlNode* element, const std::string& name, const std::string& text);

 private:
  using Result = std::unique_ptr<xmlXPathObject, decltype(&xmlXPathFreeObject)>;

  Result evaluate(xmlNode* element, const std::string& expression);

  std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document_;
  std::unique_ptr<xmlXPathContext, decltype(&xmlXPathFreeContext)> context_;
};

}  // namespace quobrak::oracles
