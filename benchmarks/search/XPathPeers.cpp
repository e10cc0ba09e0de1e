#include <libxml/parser.h>
#include <libxml/xpath.h>
#include <pugixml.hpp>

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "benchmarks/search/Peers.h"

namespace quobrak::benchmarks {

namespace {

std::string expressionFor(std::string needle) {
  std::transform(needle.begin(), needle.end(), needle.begin(),
                 [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
  const auto contains = [&needle](const std::string& attribute) {
    return "contains(translate(@" + attribute + ", 'ABCDEFGHIJKLMNOPQRSTUVWXYZ', 'abcdefghijklmnopqrstuvwxyz'), '" +
           needle + "')";
  };
  return "/Application/Table/Element[(" + contains("label") + " or " + contains("identifier") + " or " +
         contains("placeholderValue") + ") and @enabled = 'true']";
}

class Pugixml final : public Peer {
 public:
  explicit Pugixml(const std::string& pageSource) {
    if (!document_.load_buffer(pageSource.data(), pageSource.size())) {
      throw std::runtime_error("pugixml cannot read the page source");
    }
  }

  std::size_t count(const std::string& text) override {
    return document_.select_nodes(expressionFor(text).c_str()).size();
  }

 private:
  pugi::xml_document document_;
};

class Libxml2 final : public Peer {
 public:
  explicit Libxml2(const std::string& pageSource)
      : document_(
            xmlReadMemory(pageSource.data(), static_cast<int>(pageSource.size()), nullptr, nullptr, XML_PARSE_HUGE),
            xmlFreeDoc),
        context_(xmlXPathNewContext(document_.get()), xmlXPathFreeContext) {
    if (document_ == nullptr || context_ == nullptr) {
      throw std::runtime_error("libxml2 cannot read the page source");
    }
  }

  std::size_t count(const std::string& text) override {
    const std::string expression = expressionFor(text);
    const std::unique_ptr<xmlXPathObject, decltype(&xmlXPathFreeObject)> result(
        xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(expression.c_str()), context_.get()),
        xmlXPathFreeObject);
    if (result == nullptr) {
      throw std::runtime_error("libxml2 cannot evaluate " + expression);
    }
    return result->nodesetval == nullptr ? 0 : static_cast<std::size_t>(result->nodesetval->nodeNr);
  }

 private:
  std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document_;
  std::unique_ptr<xmlXPathContext, decltype(&xmlXPathFreeContext)> context_;
};

}  // namespace

std::unique_ptr<Peer> searchingWithPugixml(const std::string& pageSource) {
  return std::make_unique<Pugixml>(pageSource);
}

std::unique_ptr<Peer> searchingWithLibxml2(const std::string& pageSource) {
  return std::make_unique<Libxml2>(pageSource);
}

}  // namespace quobrak::benchmarks
