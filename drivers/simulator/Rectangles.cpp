#include "drivers/simulator/Rectangles.h"

#include <algorithm>
#include <cmath>

namespace quobrak::simulator {

Rect intersection(const Rect& one, const Rect& other) {
  const double left = std::max(one.origin.x, other.origin.x);
  const double top = std::max(one.origin.y, other.origin.y);
  const double right = std::min(one.origin.x + one.size.width, other.origin.x + other.size.width);
  const double bottom = std::min(one.origin.y + one.size.height, other.origin.y + other.size.height);
  return {{left, top}, {std::max(right - left, 0.0), std::max(bottom - top, 0.0)}};
}

bool isEmpty(const Rect& rect) {
  const bool isFinite = std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) &&
                        std::isfinite(rect.size.width) && std::isfinite(rect.size.height);
  return !isFinite || rect.size.width <= 0 || rect.size.height <= 0;
}

bool contains(const Rect& rect, Point point) {
  return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width && point.y >= rect.origin.y &&
         point.y < rect.origin.y + rect.size.height;
}

Point centre(const Rect& rect) {
  return pointAt(rect, {.dx = 0.5, .dy = 0.5});
}

Point pointAt(const Rect& rect, NormalizedOffset offset) {
  return {rect.origin.x + offset.dx * rect.size.width, rect.origin.y + offset.dy * rect.size.height};
}

}  // namespace quobrak::simulator
