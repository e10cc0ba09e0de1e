#include "drivers/simulator/PageSource.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <vector>

#include "drivers/simulator/HiddenElements.h"

namespace quobrak::simulator {

namespace {

constexpr std::string_view TYPE_PREFIX = "XCUIElementType";
/// Some servers wrap the application in an element of this name.
constexpr std::string_view WRAPPER = "AppiumAUT";
/// Far deeper than any screen (the deepest capture known has 36 levels), and far from the end of the stack.
constexpr int DEEPEST = 500;

class PageSourceReader {
 public:
  PageSourceReader(std::string_view xml, Size screen) : xml_(xml), screen_(screen) {}

  std::unique_ptr<Element> read() {
    const pugi::xml_parse_result parsed = document_.load_buffer(xml_.data(), xml_.size());
    if (!parsed) {
      fail(parsed.offset, parsed.description());
    }
    pugi::xml_node root = document_.document_element();
    if (root.name() == WRAPPER) {
      root = firstElement(root);
    }
    if (root.empty()) {
      fail(0, "the page has no element");
    }
    auto element = elementFrom(root, 1);
    if (element->type != ElementType::application) {
      element = wrapped(std::move(element));
    }
    hideInvisible(*element, invisible_);
    return element;
  }

 private:
  static pugi::xml_node firstElement(pugi::xml_node parent) {
    return parent.find_child([](pugi::xml_node node) { return node.type() == pugi::node_element; });
  }

  [[noreturn]] void fail(std::ptrdiff_t offset, const std::string& reason) const {
    throw PageSourceError({{placeInText(xml_, static_cast<std::size_t>(std::max<std::ptrdiff_t>(offset, 0))), reason}});
  }

  std::unique_ptr<Element> elementFrom(pugi::xml_node node, int depth) {
    if (depth > DEEPEST) {
      fail(node.offset_debug(), "elements are nested more than " + std::to_string(DEEPEST) + " levels deep");
    }
    auto element = std::make_unique<Element>(typeOf(node));
    element->frame = {{number(node, "x"), number(node, "y")}, {number(node, "width"), number(node, "height")}};
    element->isEnabled = truthValue(node, "enabled", true);
    element->isSelected = truthValue(node, "selected", false);
    readTexts(node, *element);
    if (!truthValue(node, "visible", true)) {
      invisible_.push_back(element.get());
    }
    for (const pugi::xml_node child : node.children()) {
      if (child.type() == pugi::node_element) {
        element->append(elementFrom(child, depth + 1));
      }
    }
    return element;
  }

  /// Servers give a static text its label, and an empty text field its placeholder, in place of a value.
  static void readTexts(pugi::xml_node node, Element& element) {
    const std::optional<std::string> name = text(node, "name");
    element.label = text(node, "label").value_or("");
    element.identifier = text(node, "identifier").value_or(name && *name != element.label ? *name : "");
    element.placeholder = text(node, "placeholderValue");
    element.value = text(node, "value");
    const bool standsForLabel = element.type == ElementType::staticText && element.value == element.label;
    if (standsForLabel || (element.value && element.value == element.placeholder)) {
      element.value.reset();
    }
  }

  ElementType typeOf(pugi::xml_node node) const {
    const std::string written = text(node, "type").value_or(node.name());
    std::string_view name = written;
    if (name.starts_with(TYPE_PREFIX)) {
      name.remove_prefix(TYPE_PREFIX.size());
    }
    const std::optional<ElementType> type = elementTypeNamed(name);
    if (!type) {
      fail(node.offset_debug(),
           "\"" + written + "\" is no element type; one is written like \"XCUIElementTypeButton\"");
    }
    return *type;
  }

  static std::optional<std::string> text(pugi::xml_node node, const char* attribute) {
    const pugi::xml_attribute found = node.attribute(attribute);
    return found.empty() ? std::nullopt : std::optional<std::string>(found.value());
  }

  double number(pugi::xml_node node, const char* attribute) const {
    const std::string written = text(node, attribute).value_or("");
    if (written.empty()) {
      return 0;
    }
    double value{};
    const char* const end = written.data() + written.size();
    const auto [parsedTo, error] = std::from_chars(written.data(), end, value);
    if (error != std::errc{} || parsedTo != end || std::isnan(value)) {
      fail(node.offset_debug(), std::string(attribute) + " is \"" + written + "\", but must be a number of points");
    }
    return value;
  }

  bool truthValue(pugi::xml_node node, const char* attribute, bool whereMissing) const {
    const std::string written = text(node, attribute).value_or("");
    if (written.empty()) {
      return whereMissing;
    }
    if (written != "true" && written != "false") {
      fail(node.offset_debug(), std::string(attribute) + " is \"" + written + "\", but must be true or false");
    }
    return written == "true";
  }

  std::unique_ptr<Element> wrapped(std::unique_ptr<Element> element) const {
    auto application = std::make_unique<Element>(ElementType::application);
    application->frame = {{0, 0}, screen_};
    application->append(std::move(element));
    return application;
  }

  std::string_view xml_;
  Size screen_;
  pugi::xml_document document_;
  /// The elements that are said not to be visible.
  std::vector<Element*> invisible_;
};

std::string textOf(const std::vector<PageSourceFault>& faults) {
  std::string text;
  for (const PageSourceFault& fault : faults) {
    text += (text.empty() ? "" : "\n") + ("line " + std::to_string(fault.place.line)) + ", column " +
            std::to_string(fault.place.column) + ": " + fault.reason;
  }
  return text;
}

}  // namespace

PageSourceError::PageSourceError(std::vector<PageSourceFault> faults)
    : std::runtime_error(textOf(faults)), faults_(std::move(faults)) {}

std::unique_ptr<Element> readPageSource(std::string_view xml, Size screen) {
  return PageSourceReader(xml, screen).read();
}

}  // namespace quobrak::simulator
