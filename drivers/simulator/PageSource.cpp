#include "drivers/simulator/PageSource.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <utility>
#include <vector>

#include "drivers/simulator/HiddenElements.h"
#include "drivers/simulator/PageText.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

namespace {

constexpr std::string_view TYPE_PREFIX = "XCUIElementType";
/// Some servers wrap the application in an element of this name.
constexpr std::string_view WRAPPER = "AppiumAUT";
/// Far deeper than any screen (the deepest capture known has 36 levels), and far from the end of the stack.
constexpr int DEEPEST = 500;

/// What servers tell of an element, in the order in which they do, and behind it what only people write. Whether it is
/// accessible, and its index, follow from nothing here and lead to nothing.
enum class Attribute : std::size_t {
  type,
  value,
  name,
  label,
  enabled,
  visible,
  accessible,
  selected,
  x,
  y,
  width,
  height,
  index,
  placeholderValue,
  traits,
  identifier,
  background
};

/// In the order of the enumeration.
constexpr std::array ATTRIBUTE_NAMES = std::to_array<const char*>(
    {"type", "value", "name", "label", "enabled", "visible", "accessible", "selected", "x", "y", "width", "height",
     "index", "placeholderValue", "traits", "identifier", "background"});
static_assert(ATTRIBUTE_NAMES.size() == static_cast<std::size_t>(Attribute::background) + 1);

std::string nameOf(Attribute attribute) {
  return ATTRIBUTE_NAMES[static_cast<std::size_t>(attribute)];
}

/// Traits are names with commas between them.
bool hasTrait(std::string_view traits, std::string_view name) {
  constexpr std::string_view SEPARATORS = ", ";
  for (auto begin = traits.find(name); begin != traits.npos; begin = traits.find(name, begin + 1)) {
    const auto end = begin + name.size();
    const bool isWhole = (begin == 0 || SEPARATORS.find(traits[begin - 1]) != SEPARATORS.npos) &&
                         (end == traits.size() || SEPARATORS.find(traits[end]) != SEPARATORS.npos);
    if (isWhole) {
      return true;
    }
  }
  return false;
}

/// Of digits alone, as nearly all numbers of a page are; none where the text is anything else, or longer than any place
/// on a screen.
std::optional<double> wholeNumber(std::string_view text) {
  constexpr std::size_t MOST_DIGITS = 9;
  if (text.empty() || text.size() > MOST_DIGITS) {
    return std::nullopt;
  }
  int number = 0;
  for (const char digit : text) {
    if (digit < '0' || digit > '9') {
      return std::nullopt;
    }
    number = 10 * number + (digit - '0');
  }
  return number;
}

/// None where the text is no number.
std::optional<double> anyNumber(std::string_view text) {
  double number{};
  const char* const end = text.data() + text.size();
  const auto [parsedTo, error] = std::from_chars(text.data(), end, number);
  const bool isNumber = error == std::errc{} && parsedTo == end && !std::isnan(number);
  return isNumber ? std::optional(number) : std::nullopt;
}

/// Of red, green and blue as six hexadecimal digits behind a #; none where the text is anything else.
std::optional<std::uint32_t> colorIn(std::string_view text) {
  constexpr std::size_t LENGTH = 7;
  constexpr int HEXADECIMAL = 16;
  std::uint32_t color{};
  const char* const end = text.data() + text.size();
  const bool isColor = text.size() == LENGTH && text.front() == '#' &&
                       std::from_chars(text.data() + 1, end, color, HEXADECIMAL).ptr == end;
  return isColor ? std::optional(color) : std::nullopt;
}

/// What is wrong with a text that is no XML.
std::string reasonOf(const pugi::xml_parse_result& parsed, std::string_view text) {
  constexpr std::string_view BLANKS = " \t\r\n";
  const bool isAtEnd = text.find_first_not_of(BLANKS, static_cast<std::size_t>(parsed.offset)) == text.npos;
  if (text.find("=\\\"") != text.npos) {
    return "quotes are written \\\" as in JSON, from which the page has to be taken out with, for example, jq -r "
           ".value";
  }
  switch (parsed.status) {
    case pugi::status_no_document_element:
      return "the page has no element; it must begin like <XCUIElementTypeApplication>";
    case pugi::status_unrecognized_tag:
      return "this is no tag; in a text < must be written &lt;";
    case pugi::status_bad_start_element:
      return "the tag must end with > or />, and have attributes like name=\"OK\" in between";
    case pugi::status_bad_attribute:
      return "an attribute must be written like name=\"OK\"";
    case pugi::status_end_element_mismatch:
      return isAtEnd ? "the page ends within an element; its end tag must be there"
                     : "this is not the end tag of the element that it ends";
    default:
      return parsed.description();
  }
}

/// What the elements of a page have in common.
struct Page {
  explicit Page(std::string_view xml)
      : text(xml), faults(text.utf8()), hasNumberedCharacters(text.utf8().find("&#") != std::string_view::npos) {}

  PageText text;
  PageSourceFaults faults;
  /// Whether characters are written by their number.
  bool hasNumberedCharacters;
};

/// One element of a page. What is wrong with it becomes a fault of the page.
class PageElement {
 public:
  PageElement(pugi::xml_node node, Page& page) : node_(node), page_(page) {
    std::size_t expected = 0;
    // An attribute that is none has an empty name, and no other has.
    pugi::xml_attribute attribute = node.first_attribute();
    for (const char* name = attribute.name(); *name != '\0'; name = attribute.name()) {
      const std::size_t place = placeOf(name, expected);
      if (place < written_.size()) {
        if (written_[place] != nullptr) {
          fault(std::string(name) + " is there more than once");
        }
        written_[place] = attribute.value();
        expected = place + 1;
      }
      attribute = attribute.next_attribute();
    }
  }

  void fault(std::string reason) const {
    page_.faults.add(static_cast<std::size_t>(node_.offset_debug()), std::move(reason));
  }

  ElementType type() const {
    const std::string_view written = raw(Attribute::type).value_or(node_.name());
    std::string_view name = written;
    if (name.starts_with(TYPE_PREFIX)) {
      name.remove_prefix(TYPE_PREFIX.size());
    }
    const std::optional<ElementType> type = elementTypeNamed(name);
    if (!type) {
      fault(quoted(written) + " is no element type; one is written like \"XCUIElementTypeButton\"");
    }
    return type.value_or(ElementType::other);
  }

  std::optional<std::string_view> text(Attribute attribute) const {
    const auto text = raw(attribute);
    // Some programs write half of an emoji by its number, which is no character.
    if (text && page_.hasNumberedCharacters && !isUTF8(*text)) {
      fault(nameOf(attribute) +
            " has a number that is no character's; an emoji must be written as it is, or as one number like &#x1F642;");
    }
    return text;
  }

  double number(Attribute attribute) const {
    const std::string_view written = raw(attribute).value_or("");
    if (written.empty()) {
      return 0;
    }
    std::optional<double> number = wholeNumber(written);
    if (!number) {
      number = anyNumber(written);
    }
    if (!number) {
      faultOf(attribute, "a number of points");
    }
    return number.value_or(0);
  }

  std::optional<std::uint32_t> color(Attribute attribute) const {
    const std::optional<std::string_view> written = raw(attribute);
    const std::optional<std::uint32_t> color = written ? colorIn(*written) : std::nullopt;
    if (written && !color) {
      faultOf(attribute, "a colour like #1E90FF");
    }
    return color;
  }

  std::optional<bool> truthValue(Attribute attribute) const {
    const std::string_view written = raw(attribute).value_or("");
    if (written.empty()) {
      return std::nullopt;
    }
    if (written != "true" && written != "false") {
      faultOf(attribute, "true or false");
    }
    return written == "true";
  }

 private:
  static std::string quoted(std::string_view text) { return "\"" + repairedUTF8(text) + "\""; }

  /// The place of a name among those that are known, or their number. Attributes nearly always come in the same order,
  /// so the search begins at the one that is expected.
  static std::size_t placeOf(const char* name, std::size_t expected) {
    constexpr std::size_t COUNT = ATTRIBUTE_NAMES.size();
    for (std::size_t tried = 0; tried < COUNT; ++tried) {
      const std::size_t place = (expected + tried) % COUNT;
      if (areEqual(name, ATTRIBUTE_NAMES[place])) {
        return place;
      }
    }
    return COUNT;
  }

  /// Names are so short that a function of the library takes longer.
  static bool areEqual(const char* one, const char* other) {
    while (*one == *other && *one != '\0') {
      ++one;
      ++other;
    }
    return *one == *other;
  }

  std::optional<std::string_view> raw(Attribute attribute) const {
    const char* const text = written_[static_cast<std::size_t>(attribute)];
    return text == nullptr ? std::nullopt : std::optional<std::string_view>(text);
  }

  void faultOf(Attribute attribute, const char* wanted) const {
    fault(nameOf(attribute) + " is " + quoted(raw(attribute).value_or("")) + ", but must be " + wanted);
  }

  pugi::xml_node node_;
  Page& page_;
  /// Null for what is left out.
  std::array<const char*, ATTRIBUTE_NAMES.size()> written_{};
};

/// Servers give a static text its label, and an empty text field its placeholder, in place of a value.
void readTexts(const PageElement& page, Element& element) {
  if (const auto label = page.text(Attribute::label)) {
    element.label = *label;
  }
  if (const auto identifier = page.text(Attribute::identifier)) {
    element.identifier = *identifier;
  } else if (const auto name = page.text(Attribute::name); name && *name != element.label) {
    element.identifier = *name;
  }
  element.placeholder = page.text(Attribute::placeholderValue);
  const auto value = page.text(Attribute::value);
  const bool standsForLabel = element.type == ElementType::staticText && value == element.label;
  const bool standsForPlaceholder = value && value == element.placeholder;
  if (!standsForLabel && !standsForPlaceholder) {
    element.value = value;
  }
}

/// Servers give a button that is selected 1 in place of a value.
void readState(const PageElement& page, Element& element) {
  const auto traits = page.text(Attribute::traits);
  const auto enabled = page.truthValue(Attribute::enabled);
  const auto selected = page.truthValue(Attribute::selected);
  const bool isOne = element.type == ElementType::button && element.value == "1";
  element.isEnabled = enabled ? *enabled : !traits || !hasTrait(*traits, "NotEnabled");
  if (selected) {
    element.isSelected = *selected;
  } else {
    element.isSelected = traits ? hasTrait(*traits, "Selected") : isOne;
  }
  if (isOne && element.isSelected) {
    element.value.reset();
  }
}

class PageSourceReader {
 public:
  PageSourceReader(std::string_view xml, Size screen) : page_(xml), screen_(screen) {}

  std::unique_ptr<Element> read() {
    const std::string_view text = page_.text.utf8();
    const pugi::xml_parse_result parsed =
        document_.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!parsed) {
      page_.faults.add(std::min(static_cast<std::size_t>(parsed.offset), text.size()), reasonOf(parsed, text));
      throw page_.faults.error();
    }
    const pugi::xml_node root = rootNode();
    auto element = elementFrom(root, 1);
    refuseWhatFollows(root);
    if (!page_.faults.empty()) {
      throw page_.faults.error();
    }
    if (element->type != ElementType::application) {
      element = wrapped(std::move(element));
    }
    hideInvisible(*element, invisible_);
    return element;
  }

 private:
  /// An empty wrapper is taken for an element, and is none.
  pugi::xml_node rootNode() const {
    const pugi::xml_node root = document_.document_element();
    const pugi::xml_node within =
        root.find_child([](pugi::xml_node node) { return node.type() == pugi::node_element; });
    return root.name() == WRAPPER && within ? within : root;
  }

  void refuseWhatFollows(pugi::xml_node root) {
    for (pugi::xml_node node = root.next_sibling(); node; node = node.next_sibling()) {
      if (node.type() == pugi::node_element) {
        PageElement(node, page_).fault("the page has ended before; all elements must be within one, the application");
      }
    }
  }

  std::unique_ptr<Element> elementFrom(pugi::xml_node node, int depth) {
    const PageElement page(node, page_);
    auto element = std::make_unique<Element>(page.type());
    element->frame = {{page.number(Attribute::x), page.number(Attribute::y)},
                      {page.number(Attribute::width), page.number(Attribute::height)}};
    readTexts(page, *element);
    readState(page, *element);
    element->background = page.color(Attribute::background);
    if (!page.truthValue(Attribute::visible).value_or(true)) {
      invisible_.push_back(element.get());
    }
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
      if (child.type() != pugi::node_element) {
        continue;
      }
      if (depth == DEEPEST) {
        PageElement(child, page_).fault("elements are nested more than " + std::to_string(DEEPEST) + " levels deep");
        break;
      }
      element->append(elementFrom(child, depth + 1));
    }
    return element;
  }

  std::unique_ptr<Element> wrapped(std::unique_ptr<Element> element) const {
    auto application = std::make_unique<Element>(ElementType::application);
    application->frame = {{0, 0}, screen_};
    application->append(std::move(element));
    return application;
  }

  Page page_;
  Size screen_;
  pugi::xml_document document_;
  /// The elements that are said not to be visible.
  std::vector<Element*> invisible_;
};

}  // namespace

std::unique_ptr<Element> readPageSource(std::string_view xml, Size screen) {
  return PageSourceReader(xml, screen).read();
}

}  // namespace quobrak::simulator
