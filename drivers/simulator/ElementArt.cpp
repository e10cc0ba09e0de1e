#include "drivers/simulator/ElementArt.h"

#include "drivers/simulator/TextDirection.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace quobrak::simulator::painting {
namespace {

using Drawings = std::array<Drawing, std::size_t{std::numeric_limits<std::uint8_t>::max()} + 1>;

Drawings collectedDrawings() {
  Drawings drawings{};
  for (const auto rows : {barArt(), containerArt(), controlArt(), pictureArt(), textArt()}) {
    for (const Art& row : rows) {
      drawings[static_cast<std::size_t>(row.type)] = row.draw;
    }
  }
  return drawings;
}

bool anyBelow(const Element& element, bool (*matches)(const Element&, ElementType), ElementType type) {
  return std::any_of(element.children().begin(), element.children().end(),
                     [&](const auto& child) { return matches(*child, type) || anyBelow(*child, matches, type); });
}

bool isInBar(const Element& element) {
  return isWithin(element, ElementType::navigationBar) || isWithin(element, ElementType::toolbar);
}

}  // namespace

Drawing drawingOf(ElementType type) {
  static const Drawings DRAWINGS = collectedDrawings();
  return DRAWINGS[static_cast<std::size_t>(type)];
}

Rect inset(const Rect& frame, double dx, double dy) {
  return {{frame.origin.x + dx, frame.origin.y + dy},
          {std::max(frame.size.width - 2 * dx, 0.0), std::max(frame.size.height - 2 * dy, 0.0)}};
}

Rect between(const Rect& frame, double left, double right) {
  return {{frame.origin.x + left, frame.origin.y}, {std::max(frame.size.width - left - right, 0.0), frame.size.height}};
}

bool isWithin(const Element& element, ElementType type) {
  for (const Element* above = element.parent(); above != nullptr; above = above->parent()) {
    if (above->type == type) {
      return true;
    }
  }
  return false;
}

const Element* cardAround(const Element& element) {
  const Element* above = element.parent();
  while (above != nullptr && !isModal(above->type)) {
    above = above->parent();
  }
  return above;
}

// Cells and cards have their own surface, on which a filled button would be a block in a block.
bool isFilledButton(const Element& element) {
  constexpr double SMALLEST_HEIGHT = 40;
  constexpr double SMALLEST_WIDTH = 140;
  constexpr double GREATEST_HEIGHT = 76;
  const Size& size = element.frame.size;
  return element.type == ElementType::button && !element.isHidden && size.height >= SMALLEST_HEIGHT &&
         size.height <= GREATEST_HEIGHT && size.width >= SMALLEST_WIDTH && cardAround(element) == nullptr &&
         !isInBar(element) && !isWithin(element, ElementType::cell);
}

bool contains(const Element& element, ElementType type) {
  return anyBelow(
      element, [](const Element& below, ElementType wanted) { return below.type == wanted && !below.isHidden; }, type);
}

bool hasTextBelow(const Element& element) {
  const auto isText = [](const Element& below, ElementType wanted) {
    return below.type == wanted && !below.label.empty() && !below.isHidden;
  };
  return anyBelow(element, isText, ElementType::staticText);
}

bool readsRightToLeft(const Element& element) {
  std::string_view words = element.label;
  forEachDescendant(element, [&](const Element& below) {
    if (words.empty() && below.type == ElementType::staticText && !below.isHidden) {
      words = below.label;
    }
  });
  return isRightToLeft(words);
}

Color inkOf(const Element& element, const Color& color) {
  return element.isEnabled ? color : GREYED_TEXT;
}

double fractionOf(std::string_view value) {
  double number = 0;
  const auto result = std::from_chars(value.data(), value.data() + value.size(), number);
  if (result.ec != std::errc() || !std::isfinite(number)) {
    return 0;
  }
  const bool isPercentage = value.find('%') != std::string_view::npos;
  return std::clamp(isPercentage ? number / 100 : number, 0.0, 1.0);
}

Color colorOf(std::string_view text) {
  static constexpr std::array<Color, 8> COLORS{{{0.92, 0.34, 0.34},
                                                {0.95, 0.55, 0.22},
                                                {0.88, 0.68, 0.15},
                                                {0.30, 0.69, 0.42},
                                                {0.20, 0.65, 0.68},
                                                {0.25, 0.52, 0.91},
                                                {0.46, 0.42, 0.86},
                                                {0.80, 0.40, 0.72}}};
  // FNV-1a, because std::hash may differ from one library to the next.
  std::uint32_t hash = 2166136261U;
  for (const char character : text) {
    hash = (hash ^ static_cast<unsigned char>(character)) * 16777619U;
  }
  return COLORS[hash % COLORS.size()];
}

std::string_view firstCharacter(std::string_view text) {
  const auto isContinuation = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
  std::size_t length = std::min<std::size_t>(text.size(), 1);
  while (length < text.size() && isContinuation(text[length])) {
    ++length;
  }
  return text.substr(0, length);
}

void drawChevron(const Canvas& canvas, const Point& tip, double height, bool pointsRight, const Color& color) {
  const double back = tip.x + (pointsRight ? -height / 2 : height / 2);
  canvas.strokePath({{back, tip.y - height / 2}, tip, {back, tip.y + height / 2}}, height / 6, color);
}

}  // namespace quobrak::simulator::painting
