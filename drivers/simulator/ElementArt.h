#pragma once

#include <span>
#include <string>
#include <string_view>

#include "drivers/simulator/Canvas.h"
#include "drivers/simulator/Element.h"
#include "drivers/simulator/Rectangles.h"
#include "platform/uiautomation/ElementType.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator::painting {

/// Draws one element without its children. `frame` is the element's, cut to what can be drawn; nothing outside it
/// becomes visible.
using Drawing = void (*)(const Canvas& canvas, const Element& element, const Rect& frame);

/// How one kind of element looks.
struct Art {
  ElementType type = ElementType::any;
  Drawing draw = nullptr;
};

std::span<const Art> barArt();
std::span<const Art> containerArt();
std::span<const Art> controlArt();
std::span<const Art> pictureArt();
std::span<const Art> textArt();

/// How elements of that type are drawn; null for plain containers, of which only the children are seen.
Drawing drawingOf(ElementType type);

// What the kinds have in common.

constexpr Color WHITE{1, 1, 1};
constexpr Color BLACK{0, 0, 0};
constexpr Color TINT{0, 0.478, 1};
constexpr Color GREEN{0.204, 0.780, 0.349};
constexpr Color SECONDARY_TEXT{0.45, 0.45, 0.48};
constexpr Color GREYED_TEXT{0.70, 0.70, 0.73};
constexpr Color PLACEHOLDER_TEXT{0.66, 0.66, 0.69};
constexpr Color SEPARATOR{0.80, 0.80, 0.82};
constexpr Color TRACK{0.88, 0.88, 0.90};
constexpr Color FIELD_FILL{0.925, 0.925, 0.940};
constexpr Color GROUPED_BACKGROUND{0.949, 0.949, 0.969};
constexpr Color BAR_FILL{0.976, 0.976, 0.980};
constexpr double HAIRLINE = 1.0 / 3;

/// The frame without `dx` at its left and right and `dy` at its top and bottom; never of negative size.
Rect inset(const Rect& frame, double dx, double dy);
/// The frame's part from `left` of its left edge to `right` of its right edge.
Rect between(const Rect& frame, double left, double right);

/// Whether some element above is of that type.
bool isWithin(const Element& element, ElementType type);
/// The alert, sheet or dialog that the element is in, null for none.
const Element* cardAround(const Element& element);
/// Whether the element is a button so big, and so much on its own, that it is drawn as a filled block.
bool isFilledButton(const Element& element);
/// Whether some element below, that is not hidden, is of that type.
bool contains(const Element& element, ElementType type);
/// Whether the element's words stand in texts below it, so that drawing them again would double them.
bool hasTextBelow(const Element& element);

/// Whether the element's own words read from right to left: its label or else the first text below it that has one.
bool readsRightToLeft(const Element& element);

/// `color` for enabled elements, grey for others.
Color inkOf(const Element& element, const Color& color);

/// What an indicator's value says of its range, from 0 to 1: "40%" and "0.4" are both 0.4. Anything else is 0.
double fractionOf(std::string_view value);

/// A colour that is always the same for the same text.
Color colorOf(std::string_view text);
/// The text's first character, "" of an empty text.
std::string_view firstCharacter(std::string_view text);

/// An arrow head of that height whose tip points right, or left.
void drawChevron(const Canvas& canvas, const Point& tip, double height, bool pointsRight, const Color& color);

}  // namespace quobrak::simulator::painting
