#include "phoneserver/PageSourceWriter.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <sstream>
#include <unordered_map>

#include "phoneserver/WireAttributes.h"
#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

class DocumentWriter {
 public:
  DocumentWriter(const SearchScope& scope, const std::vector<std::string>& excluded)
      : scope_(scope), excluded_(excluded) {
    append(document_, scope.root, 0, 0);
  }

  const pugi::xml_document& document() const { return document_; }

  const Element& elementOf(pugi::xml_node node) const { return *elements_.at(node.hash_value()); }

 private:
  void append(pugi::xml_node parent, const Element& element, int depth, std::int64_t index) {
    pugi::xml_node node = parent.append_child(wireTypeOf(element.type).c_str());
    elements_.emplace(node.hash_value(), &element);
    const WireRect rect = wireRectOf(element);
    set(node, "type", wireTypeOf(element.type));
    set(node, "value", wireValueOf(element));
    set(node, "name", wireNameOf(element));
    set(node, "label", wireLabelOf(element));
    set(node, "enabled", element.isEnabled);
    set(node, "visible", scope_.served.isVisible(element));
    set(node, "accessible", isAccessible(element));
    if (element.isSelected) {
      set(node, "selected", element.isSelected);
    }
    set(node, "x", rect.x);
    set(node, "y", rect.y);
    set(node, "width", rect.width);
    set(node, "height", rect.height);
    set(node, "index", index);
    set(node, "placeholderValue", wirePlaceholderOf(element));
    if (depth == scope_.deepest) {
      return;
    }
    std::int64_t place = 0;
    for (const auto& child : element.children()) {
      append(node, *child, depth + 1, place++);
    }
  }

  void set(pugi::xml_node node, const char* name, const std::string& text) const {
    if (std::find(excluded_.begin(), excluded_.end(), name) == excluded_.end()) {
      node.append_attribute(name).set_value(text.c_str());
    }
  }
  void set(pugi::xml_node node, const char* name, const std::optional<std::string_view>& text) const {
    if (text) {
      set(node, name, std::string(*text));
    }
  }
  void set(pugi::xml_node node, const char* name, bool truth) const {
    set(node, name, std::string(truth ? "true" : "false"));
  }
  void set(pugi::xml_node node, const char* name, std::int64_t number) const {
    set(node, name, std::to_string(number));
  }

  const SearchScope& scope_;
  const std::vector<std::string>& excluded_;
  pugi::xml_document document_;
  std::unordered_map<std::size_t, const Element*> elements_;
};

[[noreturn]] void failXPath(const std::string& expression, const std::string& reason) {
  throw WireError(WireErrorCode::invalidSelector, reason + " in the XPath expression: " + expression);
}

pugi::xpath_node_set selected(const DocumentWriter& writer, const std::string& expression) {
  try {
    pugi::xpath_node_set nodes = pugi::xpath_query(expression.c_str()).evaluate_node_set(writer.document());
    nodes.sort();
    return nodes;
  } catch (const pugi::xpath_exception& error) {
    failXPath(expression, "column " + std::to_string(error.result().offset + 1) + ": " + error.what());
  }
}

}  // namespace

std::string pageSource(const SearchScope& scope, const std::vector<std::string>& excluded) {
  std::ostringstream text;
  DocumentWriter(scope, excluded).document().save(text, "  ");
  return text.str();
}

FoundElements elementsOfXPath(const SearchScope& scope, const std::string& expression) {
  const std::vector<std::string> nothing;
  const DocumentWriter writer(scope, nothing);
  FoundElements found;
  for (const pugi::xpath_node& node : selected(writer, expression)) {
    if (node.attribute() || node.node().type() != pugi::node_element) {
      failXPath(expression, "elements must be selected, not attributes, texts or the document");
    }
    found.push_back(&writer.elementOf(node.node()));
  }
  return found;
}

}  // namespace quobrak::phoneserver
