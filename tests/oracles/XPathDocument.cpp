#include "tests/oracles/XPathDocument.h"

#include <libxml/parser.h>
#include <libxml/xpathInternals.h>

#include <stdexcept>

namespace quobrak::oracles {

namespace {

const xmlChar* bytesOf(const std::string& text) {
  return reinterpret_cast<const xmlChar*>(text.c_str());
}

}  // namespace

XPathDocument::XPathDocument(std::string_view xml)
    : document_(xmlReadMemory(xml.data(), static_cast<int>(xml.size()), nullptr, nullptr,
                              XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
                xmlFreeDoc),
      context_(xmlXPathNewContext(document_.get()), xmlXPathFreeContext) {
  if (document_ == nullptr) {
    throw std::runtime_error("the page source is not well-formed");
  }
}

void XPathDocument::setVariable(const std::string& name, const std::string& text) {
  xmlXPathRegisterVariable(context_.get(), bytesOf(name), xmlXPathNewCString(text.c_str()));
}

void XPathDocument::setSelection(const std::string& name, const std::string& expression) {
  xmlXPathRegisterVariable(context_.get(), bytesOf(name), evaluate(root(), expression).release());
}

XPathDocument::Result XPathDocument::evaluate(xmlNode* element, const std::string& expression) {
  xmlXPathSetContextNode(element, context_.get());
  Result result(xmlXPathEval(bytesOf(expression), context_.get()), xmlXPathFreeObject);
  if (result == nullptr) {
    throw std::runtime_error("no XPath: " + expression);
  }
  return result;
}

std::vector<xmlNode*> XPathDocument::select(xmlNode* element, const std::string& expression) {
  const Result result = evaluate(element, expression);
  xmlNodeSet* const found = result->nodesetval;
  if (found == nullptr) {
    return {};
  }
  xmlXPathNodeSetSort(found);
  return {found->nodeTab, found->nodeTab + found->nodeNr};
}

std::string XPathDocument::textAt(xmlNode* element, const std::string& expression) {
  const Result result = evaluate(element, "string(" + expression + ")");
  return reinterpret_cast<const char*>(result->stringval);
}

void XPathDocument::setAttribute(xmlNode* element, const std::string& name, const std::string& text) {
  xmlSetProp(element, bytesOf(name), bytesOf(text));
}

}  // namespace quobrak::oracles
