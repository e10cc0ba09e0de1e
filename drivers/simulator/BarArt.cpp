// Navigation bars, tab bars, the status bar and the keyboard.

#include "drivers/simulator/ElementArt.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace quobrak::simulator::painting {
namespace {

constexpr Color KEYBOARD_FILL{0.82, 0.835, 0.86};
constexpr Color KEY_SHADOW{0.54, 0.55, 0.57};

void drawBar(const Canvas& canvas, const Rect& frame, double lineY) {
  canvas.fill(frame, BAR_FILL);
  canvas.fill({{frame.origin.x, lineY}, {frame.size.width, HAIRLINE}}, SEPARATOR);
}

void drawNavigationBar(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double ROOM_FOR_BUTTONS = 90;
  drawBar(canvas, frame, frame.origin.y + frame.size.height - HAIRLINE);
  if (!hasTextBelow(element)) {
    const std::string& title = element.label.empty() ? element.identifier : element.label;
    canvas.text(title, inset(frame, std::min(ROOM_FOR_BUTTONS, frame.size.width / 4), 0),
                {.size = 16, .color = BLACK, .boldFrom = ALWAYS_BOLD, .alignment = Alignment::CENTER});
  }
}

void drawBarAtBottom(const Canvas& canvas, const Element&, const Rect& frame) {
  drawBar(canvas, frame, frame.origin.y);
}

// No clock: the picture of a screen must not tell a time that it does not know.
void drawStatusBar(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double SHORTEST_BAR = 4;
  constexpr double BAR_DISTANCE = 4.5;
  const Color ink = inkOf(element, {0.1, 0.1, 0.1});
  const double bottom = frame.origin.y + frame.size.height / 2 + 8;
  const double right = frame.origin.x + frame.size.width - 24;
  for (int number = 0; number < 4; ++number) {
    const double height = SHORTEST_BAR + 2.4 * number;
    canvas.fillRounded({{right - 54 + BAR_DISTANCE * number, bottom - height}, {3.2, height}}, 1, ink);
  }
  const Rect battery{{right - 28, bottom - 12}, {25, 12.5}};
  canvas.strokeRounded(battery, 3.6, 1, {0.55, 0.55, 0.55});
  canvas.fillRounded(inset(battery, 2, 2), 2, ink);
  canvas.fillRounded({{right - 2, bottom - 8}, {1.7, 4.5}}, 0.8, {0.55, 0.55, 0.55});
}

void drawTab(const Canvas& canvas, const Element& element, const Rect& frame) {
  const bool isCurrent = element.isSelected || element.value == "1";
  const Color ink = inkOf(element, isCurrent ? TINT : Color{0.58, 0.58, 0.60});
  const Point icon{frame.origin.x + frame.size.width / 2, frame.origin.y + 19};
  const Rect tile{{icon.x - 11.5, icon.y - 11.5}, {23, 23}};
  if (isCurrent) {
    canvas.fillRounded(tile, 6.5, ink);
  } else {
    canvas.strokeRounded(tile, 6.5, 1.7, ink);
  }
  canvas.text(firstCharacter(element.label), tile,
              {.size = 13, .color = isCurrent ? WHITE : ink, .boldFrom = ALWAYS_BOLD, .alignment = Alignment::CENTER});
  canvas.text(element.label, {{frame.origin.x + 2, frame.origin.y + 33}, {frame.size.width - 4, 14}},
              {.size = 10, .smallestSize = 8, .color = ink, .alignment = Alignment::CENTER});
}

void drawKeyboard(const Canvas& canvas, const Element&, const Rect& frame) {
  canvas.fill(frame, KEYBOARD_FILL);
}

// What is printed on a key that is named with a word.
std::string_view printOf(const Element& key) {
  struct Print {
    std::string_view label;
    std::string_view print;
  };
  static constexpr Print PRINTS[] = {{"shift", "⇧"},     {"delete", "⌫"},    {"numbers", "123"},
                                     {"letters", "ABC"}, {"symbols", "#+="}, {"space", " "}};
  const auto* const found = std::find_if(std::begin(PRINTS), std::end(PRINTS),
                                         [&key](const Print& print) { return print.label == key.label; });
  return found == std::end(PRINTS) ? std::string_view(key.label) : found->print;
}

void drawKey(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr Color OF_COMMANDS{0.68, 0.70, 0.74};
  const bool isCharacter = firstCharacter(element.label) == element.label || element.label == "space";
  const bool isShiftThatHolds = element.isSelected && element.label == "shift";
  const bool isWhite = isShiftThatHolds || (isCharacter && !element.isSelected);
  const std::string_view print = printOf(element);
  const Rect cap = inset(frame, std::min(3.0, frame.size.width / 8), std::min(5.0, frame.size.height / 8));
  canvas.fillRounded({{cap.origin.x, cap.origin.y + 1}, cap.size}, 5, KEY_SHADOW);
  canvas.fillRounded(cap, 5, isWhite ? WHITE : OF_COMMANDS);
  canvas.text(print, inset(cap, 2, 0),
              {.size = firstCharacter(print) == print ? 21.0 : 14.0,
               .smallestSize = 7,
               .color = inkOf(element, BLACK),
               .alignment = Alignment::CENTER});
}

void drawHandle(const Canvas& canvas, const Element&, const Rect& frame) {
  canvas.fillRounded(frame, frame.size.height / 2, {0.1, 0.1, 0.1});
}

constexpr Art ROWS[] = {
    {ElementType::navigationBar, drawNavigationBar},
    {ElementType::tabBar, drawBarAtBottom},
    {ElementType::toolbar, drawBarAtBottom},
    {ElementType::tab, drawTab},
    {ElementType::statusBar, drawStatusBar},
    {ElementType::keyboard, drawKeyboard},
    {ElementType::key, drawKey},
    {ElementType::handle, drawHandle},
};

}  // namespace

std::span<const Art> barArt() {
  return ROWS;
}

}  // namespace quobrak::simulator::painting
