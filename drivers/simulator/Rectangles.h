#pragma once

#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator {

/// The part that two rectangles share; one of no extent where they share none.
Rect intersection(const Rect& one, const Rect& other);

/// Whether the rectangle has no extent, or one that is not finite.
bool isEmpty(const Rect& rect);

/// The left and the top edge belong to a rectangle, the right and the bottom one do not. False for a point that is not
/// finite.
bool contains(const Rect& rect, Point point);

Point centre(const Rect& rect);

/// The place within the rectangle.
Point pointAt(const Rect& rect, NormalizedOffset offset);

}  // namespace quobrak::simulator
