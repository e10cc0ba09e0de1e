#pragma once

#include <optional>
#include <span>
#include <string>

#include "drivers/simulator/Element.h"
#include "platform/foundation/Data.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator {

/// A place on the screen that a picture points out, and the word that stands at its corner.
struct Mark {
  /// In points. What lies outside the screen is not seen.
  Rect frame;
  std::string word;
  /// Whether it stands back behind others.
  bool isFaint = false;
};

/// Draws element trees as the picture of a phone's screen, with the font that comes with the program, so that the same
/// screen is the same bytes on every machine.
class ScreenPainter {
 public:
  /// `size` is the screen's size in points, `scale` the pixels to a point.
  ScreenPainter(Size size, double scale);

  /// The picture of the layers, the first one at the bottom, as PNG without transparency. Each layer is the root of a
  /// tree. An Alert dims all that is behind it. The marks lie over all of it, the first one in front. None where a
  /// picture of that size cannot be made.
  std::optional<Data> png(std::span<const Element* const> layers, std::span<const Mark> marks = {}) const;

 private:
  Size size_;
  double scale_;
};

}  // namespace quobrak::simulator
