#pragma once

namespace quobrak {

/// A place on the screen, in points from the top-left corner.
struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

/// An extent in points.
struct Size {
  double width = 0;
  double height = 0;
  bool operator==(const Size&) const = default;
};

/// A rectangle on the screen, in points.
struct Rect {
  Point origin;
  Size size;
  bool operator==(const Rect&) const = default;
};

/// A place within an element as fractions of its width and height from its top-left corner; (0.5, 0.5) is the middle.
/// Fractions outside 0 to 1 lie outside the element.
struct NormalizedOffset {
  double dx = 0;
  double dy = 0;
  bool operator==(const NormalizedOffset&) const = default;
};

}  // namespace quobrak
