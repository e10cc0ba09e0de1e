#include "drivers/simulator/ElementDescription.h"

#include "platform/uiautomation/QueryChain.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace quobrak::simulator {

namespace {

using Elements = std::vector<const Element*>;

/// The first window of an application is its main one.
bool isMainWindow(const Element& element) {
  const Element* const parent = element.parent();
  if (element.type != ElementType::window || parent == nullptr || parent->type != ElementType::application) {
    return false;
  }
  const auto& siblings = parent->children();
  const auto firstWindow = std::find_if(siblings.begin(), siblings.end(),
                                        [](const auto& sibling) { return sibling->type == ElementType::window; });
  return firstWindow->get() == &element;
}

/// The elements of a document, in its order.
class Document {
 public:
  explicit Document(const Element& root) : elements_{&root} {
    forEachDescendant(root, [this](const Element& element) { elements_.push_back(&element); });
  }

  /// The place of an element of the document. Who asks in the order of the document walks it once.
  std::size_t placeOf(const Element& element) {
    const auto next = elements_.begin() + static_cast<std::ptrdiff_t>(next_);
    const auto behind = std::find(next, elements_.end(), &element);
    const auto found = behind == elements_.end() ? std::find(elements_.begin(), next, &element) : behind;
    next_ = static_cast<std::size_t>(found - elements_.begin());
    return next_;
  }

 private:
  Elements elements_;
  /// Where the last search ended.
  std::size_t next_ = 0;
};

class DescriptionWriter {
 public:
  DescriptionWriter(const Element& element, int processIdentifier)
      : document_(rootOf(element)), processIdentifier_(processIdentifier) {}

  std::string text() && { return std::move(text_); }

  void write(std::string_view text) { text_ += text; }

  void writeMargin(std::size_t indent) { text_.append(indent, ' '); }

  void writeLine(const Element& element) { writeLine(element, document_.placeOf(element)); }

  void writeLinesBelow(const Element& element) {
    std::size_t place = document_.placeOf(element);
    constexpr std::size_t FIRST_INDENT = 4;
    writeLinesBelow(element, FIRST_INDENT, place);
  }

  void writePath(const Element& element) {
    Elements steps;
    for (const Element* step = &element; step != nullptr; step = step->parent()) {
      steps.push_back(step);
    }
    std::reverse(steps.begin(), steps.end());
    for (std::size_t depth = 0; depth < steps.size(); ++depth) {
      writeMargin(depth + 1);
      write(depth == 0 ? "→" : "↳");
      writeLine(*steps[depth]);
    }
  }

  /// What a step of the query found.
  void writeOutput(const Elements& found, std::size_t indent) {
    writeMargin(indent);
    write("Output: {\n");
    for (const Element* element : found) {
      writeMargin(indent + 2);
      writeLine(*element);
    }
    writeMargin(indent);
    write("}\n");
  }

 private:
  /// `place` is the element's, and then that of the last element below it.
  void writeLinesBelow(const Element& element, std::size_t indent, std::size_t& place) {
    for (const auto& child : element.children()) {
      writeMargin(indent);
      writeLine(*child, ++place);
      writeLinesBelow(*child, indent + 2, place);
    }
  }

  void writeLine(const Element& element, std::size_t place) {
    write(nameOf(element.type));
    write(isMainWindow(element) ? " (Main), " : ", ");
    writeAddress(place);
    if (element.type == ElementType::application) {
      write(", pid: ");
      writeNumber(processIdentifier_);
    } else {
      writeFrame(element.frame);
    }
    writeQuoted(", identifier: '", element.identifier);
    writeQuoted(", label: '", element.label);
    if (element.placeholder) {
      writeQuoted(", placeholderValue: '", *element.placeholder);
    }
    if (element.value && !element.value->empty()) {
      write(", value: ");
      write(*element.value);
    }
    write(element.hasKeyboardFocus ? ", Keyboard Focused" : "");
    write(element.isSelected ? ", Selected" : "");
    write(element.isEnabled ? "\n" : ", Disabled\n");
  }

  /// Stands in for the address that a phone shows: made from the element's place in its document, so that the same
  /// screen gives the same text.
  void writeAddress(std::size_t place) {
    constexpr std::uint64_t FIRST = 0x100000000;
    constexpr std::uint64_t DISTANCE = 0x40;
    constexpr int HEXADECIMAL = 16;
    write("0x");
    writeNumber(FIRST + DISTANCE * place, HEXADECIMAL);
  }

  void writeFrame(const Rect& frame) {
    write(", {{");
    writePoints(frame.origin.x);
    write(", ");
    writePoints(frame.origin.y);
    write("}, {");
    writePoints(frame.size.width);
    write(", ");
    writePoints(frame.size.height);
    write("}}");
  }

  void writePoints(double number) {
    // Nearly all are whole and lie on the screen or below it; those are written three times as fast as whole numbers.
    constexpr double FAR = 1e9;
    if (!std::signbit(number) && number < FAR && std::trunc(number) == number) {
      writeNumber(static_cast<std::uint32_t>(number));
      write(".0");
      return;
    }
    constexpr int ONE_DECIMAL = 1;
    writeNumber(number, std::chars_format::fixed, ONE_DECIMAL);
  }

  /// As `std::to_chars` writes it, with the format that it takes.
  template <class Number, class... Format>
  void writeNumber(Number number, Format... format) {
    // The largest double has 309 digits before the point.
    std::array<char, 320> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number, format...);
    text_.append(digits.data(), written.ptr);
  }

  void writeQuoted(std::string_view opening, std::string_view text) {
    if (!text.empty()) {
      write(opening);
      write(text);
      write("'");
    }
  }

  Document document_;
  int processIdentifier_;
  std::string text_;
};

}  // namespace

std::string debugDescription(const XCUIElement& description, std::span<const std::vector<const Element*>> stages,
                             int processIdentifier) {
  const Element& element = *stages.back().front();
  DescriptionWriter writer(element, processIdentifier);
  writer.write("Attributes: ");
  writer.writeLine(element);
  writer.write("Element subtree:\n →");
  writer.writeLine(element);
  writer.writeLinesBelow(element);
  writer.write("Path to element:\n");
  writer.writePath(element);
  writer.write(QUERY_CHAIN_TITLE);
  const std::vector<std::string> steps = queryChainSteps(description);
  for (std::size_t depth = 0; depth < steps.size(); ++depth) {
    writer.write(steps[depth]);
    writer.writeOutput(stages[depth], 2 * depth + 2);
  }
  writer.write("\n");
  return std::move(writer).text();
}

}  // namespace quobrak::simulator
