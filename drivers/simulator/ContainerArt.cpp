// Tables, cells, cards and what else holds other elements.

#include "drivers/simulator/ElementArt.h"

#include <algorithm>
#include <cmath>

namespace quobrak::simulator::painting {
namespace {

void drawGroupedBackground(const Canvas& canvas, const Element&, const Rect& frame) {
  canvas.fill(frame, GROUPED_BACKGROUND);
}

void drawPage(const Canvas& canvas, const Element&, const Rect& frame) {
  canvas.fill(frame, WHITE);
  canvas.strokeRounded(frame, 0, HAIRLINE, SEPARATOR);
}

bool isControl(ElementType type) {
  switch (type) {
    case ElementType::button:
    case ElementType::switchControl:
    case ElementType::toggle:
    case ElementType::stepper:
    case ElementType::slider:
    case ElementType::textField:
    case ElementType::secureTextField:
    case ElementType::textView:
      return true;
    default:
      return false;
  }
}

bool hasControl(const Element& element) {
  return std::any_of(element.children().begin(), element.children().end(),
                     [](const auto& child) { return isControl(child->type) || hasControl(*child); });
}

bool isRow(const Rect& frame) {
  constexpr double NARROWEST_ROW = 240;
  constexpr double HIGHEST_ROW = 110;
  return frame.size.width >= NARROWEST_ROW && frame.size.height <= HIGHEST_ROW;
}

// A cell that stands by itself is a card; cells that touch are rows of one list.
bool touchesOther(const Element& cell) {
  const auto touches = [&](const auto& other) {
    const double gap = std::min(std::abs(other->frame.origin.y + other->frame.size.height - cell.frame.origin.y),
                                std::abs(cell.frame.origin.y + cell.frame.size.height - other->frame.origin.y));
    return other.get() != &cell && other->type == ElementType::cell && gap < 1;
  };
  return cell.parent() != nullptr &&
         std::any_of(cell.parent()->children().begin(), cell.parent()->children().end(), touches);
}

void drawCellBackground(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double CORNER = 12;
  constexpr double SEPARATOR_START = 16;
  const Color fill = element.isSelected ? Color{0.87, 0.92, 0.99} : WHITE;
  if (frame.origin.x >= 1 && !touchesOther(element)) {
    canvas.fillRounded(frame, CORNER, fill);
    canvas.strokeRounded(frame, CORNER, HAIRLINE, SEPARATOR);
    return;
  }
  canvas.fill(frame, fill);
  canvas.fill({{frame.origin.x + SEPARATOR_START, frame.origin.y + frame.size.height - HAIRLINE},
               {frame.size.width - SEPARATOR_START, HAIRLINE}},
              SEPARATOR);
}

void drawCell(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double MARGIN = 16;
  constexpr double CHEVRON_ROOM = 32;
  drawCellBackground(canvas, element, frame);
  const bool leadsOn = isRow(frame) && element.isEnabled && !hasControl(element);
  const bool isMirrored = readsRightToLeft(element);
  if (leadsOn) {
    const double tip = isMirrored ? MARGIN : frame.size.width - MARGIN;
    drawChevron(canvas, {frame.origin.x + tip, centre(frame).y}, 12, !isMirrored, {0.75, 0.75, 0.78});
  }
  if (hasTextBelow(element)) {
    return;
  }
  const double end = leadsOn ? CHEVRON_ROOM : MARGIN;
  const Rect inside = isMirrored ? between(frame, end, MARGIN) : between(frame, MARGIN, end);
  const Rect label = canvas.text(element.label, inside, {.color = inkOf(element, BLACK), .wraps = true});
  const double taken = label.size.width + MARGIN;
  canvas.text(element.value.value_or(""), isMirrored ? between(inside, 0, taken) : between(inside, taken, 0),
              {.color = SECONDARY_TEXT, .alignment = isMirrored ? Alignment::LEFT : Alignment::RIGHT});
}

bool needsTitle(const Element& card) {
  bool isRepeated = false;
  forEachDescendant(card, [&](const Element& below) {
    isRepeated = isRepeated || (below.type == ElementType::staticText && below.label == card.label);
  });
  return !isRepeated;
}

void drawCard(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double TITLE_HEIGHT = 44;
  canvas.fillRounded(frame, 14, {0.965, 0.965, 0.970});
  if (needsTitle(element)) {
    const Rect title{{frame.origin.x + 16, frame.origin.y + 4},
                     {frame.size.width - 32, std::min(TITLE_HEIGHT, frame.size.height)}};
    canvas.text(element.label, title,
                {.color = BLACK, .boldFrom = ALWAYS_BOLD, .wraps = true, .alignment = Alignment::CENTER});
  }
}

void drawWindowCard(const Canvas& canvas, const Element&, const Rect& frame) {
  canvas.fillRounded(frame, 12, WHITE);
  canvas.strokeRounded(frame, 12, HAIRLINE, SEPARATOR);
}

constexpr Art ROWS[] = {
    {ElementType::table, drawGroupedBackground},
    {ElementType::collectionView, drawGroupedBackground},
    {ElementType::outline, drawGroupedBackground},
    {ElementType::webView, drawPage},
    {ElementType::cell, drawCell},
    {ElementType::tableRow, drawCell},
    {ElementType::outlineRow, drawCell},
    {ElementType::alert, drawCard},
    {ElementType::sheet, drawCard},
    {ElementType::dialog, drawCard},
    {ElementType::popover, drawWindowCard},
    {ElementType::menu, drawWindowCard},
    {ElementType::picker, drawWindowCard},
};

}  // namespace

std::span<const Art> containerArt() {
  return ROWS;
}

}  // namespace quobrak::simulator::painting
