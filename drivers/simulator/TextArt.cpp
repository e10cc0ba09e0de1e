// Texts, and fields to type them into.

#include "drivers/simulator/ElementArt.h"
#include "drivers/simulator/TextDirection.h"
#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace quobrak::simulator::painting {
namespace {

bool isInFilledButton(const Element& element) {
  return element.parent() != nullptr && isFilledButton(*element.parent());
}

bool isTitle(const Element& element) {
  const Element* const card = cardAround(element);
  return isWithin(element, ElementType::navigationBar) || (card != nullptr && card->label == element.label);
}

// Texts do not tell how they are aligned; where they stand does.
Alignment alignmentOf(const Element& element, const Rect& frame) {
  constexpr double PAGE_MARGIN = 24;
  if (cardAround(element) != nullptr || isWithin(element, ElementType::navigationBar) ||
      isWithin(element, ElementType::button)) {
    return Alignment::CENTER;
  }
  const Element* container = element.parent();
  while (container != nullptr && container->parent() != nullptr && container->type == ElementType::other) {
    container = container->parent();
  }
  if (container == nullptr || container->frame.size.width <= 0) {
    return Alignment::NATURAL;
  }
  const double left = frame.origin.x - container->frame.origin.x;
  const double right = container->frame.size.width - left - frame.size.width;
  if (container->type == ElementType::cell && left > container->frame.size.width / 2) {
    return Alignment::RIGHT;
  }
  return std::abs(left - right) < 1 && left > PAGE_MARGIN ? Alignment::CENTER : Alignment::NATURAL;
}

// A frame of one line is as high as its font wants; a higher one holds several lines of ordinary text.
double sizeFor(const Rect& frame) {
  constexpr double HIGHEST_LINE = 50;
  constexpr double LARGEST = 30;
  constexpr double ORDINARY = 16;
  return frame.size.height > HIGHEST_LINE ? ORDINARY : std::clamp(frame.size.height / 1.28, 7.0, LARGEST);
}

Color textColor(const Element& element, const Rect& frame) {
  constexpr double SMALLEST_BLACK = 14.5;
  if (isInFilledButton(element)) {
    return element.parent()->isEnabled ? WHITE : GREYED_TEXT;
  }
  if (isWithin(element, ElementType::button)) {
    return inkOf(element, TINT);
  }
  if (element.isSelected) {
    return TINT;
  }
  return inkOf(element, sizeFor(frame) < SMALLEST_BLACK ? SECONDARY_TEXT : BLACK);
}

double largestSize(const Element& element, const Rect& frame) {
  constexpr double CARD_TITLE = 16;
  constexpr double CARD_MESSAGE = 13;
  if (cardAround(element) == nullptr) {
    return sizeFor(frame);
  }
  return std::min(sizeFor(frame), isTitle(element) ? CARD_TITLE : CARD_MESSAGE);
}

void drawStaticText(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double SMALLEST_HEADLINE = 18;
  const double size = largestSize(element, frame);
  const std::string& words = element.label.empty() && element.value ? *element.value : element.label;
  canvas.text(words, frame,
              {.size = size,
               .smallestSize = std::min(size, 9.0),
               .color = textColor(element, frame),
               .boldFrom = isTitle(element) ? ALWAYS_BOLD : SMALLEST_HEADLINE,
               .wraps = true,
               .alignment = alignmentOf(element, frame)});
}

void drawLink(const Canvas& canvas, const Element& element, const Rect& frame) {
  if (hasTextBelow(element)) {
    return;
  }
  const Color ink = inkOf(element, TINT);
  const Rect line =
      canvas.text(element.label, frame, {.size = sizeFor(frame), .smallestSize = 9, .color = ink, .wraps = true});
  canvas.fill({{line.origin.x, line.origin.y + line.size.height - 1.5}, {line.size.width, 0.8}}, ink);
}

struct FieldText {
  std::string words;
  bool isTyped = false;
};

// An empty field gives its placeholder as its value too.
FieldText fieldTextOf(const Element& element) {
  if (element.value && !element.value->empty() && element.value != element.placeholder) {
    return {*element.value, true};
  }
  return {element.placeholder.value_or(element.label), false};
}

// Where what is typed next will stand; text that overflows its frame keeps the caret at the edge.
double caretOf(const FieldText& text, const Rect& lastLine, const Rect& frame, double caretWidth) {
  const std::string_view lastParagraph = std::string_view(text.words).substr(text.words.find_last_of("\r\n") + 1);
  const double right = frame.origin.x + frame.size.width;
  if (isRightToLeft(lastParagraph)) {
    return text.isTyped ? std::max(lastLine.origin.x - 1 - caretWidth, frame.origin.x) : right - caretWidth;
  }
  return text.isTyped ? std::min(lastLine.origin.x + lastLine.size.width + 1, right) : frame.origin.x;
}

void drawFieldText(const Canvas& canvas, const Element& element, const Rect& frame, const FieldText& text,
                   const TextStyle& style) {
  TextStyle colored = style;
  colored.color = text.isTyped ? inkOf(element, BLACK) : PLACEHOLDER_TEXT;
  const Rect line = canvas.text(text.words, frame, colored);
  if (element.hasKeyboardFocus) {
    constexpr double CARET_WIDTH = 2;
    const double left = caretOf(text, line, frame, CARET_WIDTH);
    const double height = std::min(line.size.height, 22.0);
    const double top = line.origin.y + (line.size.height - height) / 2;
    canvas.fill({{left, top}, {CARET_WIDTH, height}}, TINT);
  }
}

void drawFieldBox(const Canvas& canvas, const Element& element, const Rect& frame) {
  canvas.fillRounded(frame, 9, element.isEnabled ? WHITE : FIELD_FILL);
  canvas.strokeRounded(frame, 9, element.hasKeyboardFocus ? 1.2 : 0.8, element.hasKeyboardFocus ? TINT : SEPARATOR);
}

void drawTextField(const Canvas& canvas, const Element& element, const Rect& frame) {
  drawFieldBox(canvas, element, frame);
  drawFieldText(canvas, element, inset(frame, 10, 0), fieldTextOf(element), {});
}

void drawSecureTextField(const Canvas& canvas, const Element& element, const Rect& frame) {
  FieldText text = fieldTextOf(element);
  if (text.isTyped) {
    const std::size_t count = characterCount(text.words);
    text.words.clear();
    for (std::size_t number = 0; number < count; ++number) {
      text.words += "•";
    }
  }
  drawFieldBox(canvas, element, frame);
  drawFieldText(canvas, element, inset(frame, 10, 0), text, {});
}

void drawSearchField(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double GLASS_ROOM = 34;
  const Point glass{frame.origin.x + 17, centre(frame).y - 1};
  canvas.fillRounded(frame, 10, FIELD_FILL);
  canvas.strokeCircle(glass, 6.5, 1.6, SECONDARY_TEXT);
  canvas.strokePath({{glass.x + 4.5, glass.y + 4.5}, {glass.x + 8.5, glass.y + 8.5}}, 1.8, SECONDARY_TEXT);
  drawFieldText(canvas, element, between(frame, GLASS_ROOM, 10), fieldTextOf(element), {});
}

void drawTextView(const Canvas& canvas, const Element& element, const Rect& frame) {
  canvas.fillRounded(frame, 9, WHITE);
  canvas.strokeRounded(frame, 9, 0.8, element.hasKeyboardFocus ? TINT : SEPARATOR);
  drawFieldText(canvas, element, inset(frame, 10, 8), fieldTextOf(element), {.wraps = true, .isAtTop = true});
}

constexpr Art ROWS[] = {
    {ElementType::staticText, drawStaticText},
    {ElementType::link, drawLink},
    {ElementType::textField, drawTextField},
    {ElementType::comboBox, drawTextField},
    {ElementType::secureTextField, drawSecureTextField},
    {ElementType::searchField, drawSearchField},
    {ElementType::textView, drawTextView},
};

}  // namespace

std::span<const Art> textArt() {
  return ROWS;
}

}  // namespace quobrak::simulator::painting
