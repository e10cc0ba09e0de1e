#pragma once

#include <cairo.h>

#include <initializer_list>
#include <limits>
#include <string_view>

#include "drivers/simulator/TextFont.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator::painting {

/// Each part from 0 to 1.
struct Color {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
};

/// NATURAL is where the lines of the text's own direction begin: at the left, or of text from right to left at the
/// right.
enum class Alignment { NATURAL, LEFT, CENTER, RIGHT };

constexpr double ALWAYS_BOLD = 0;
constexpr double NEVER_BOLD = std::numeric_limits<double>::infinity();

struct TextStyle {
  /// In points. Text that does not fit is drawn smaller, down to `smallestSize`, and then ends with an ellipsis.
  double size = 16;
  double smallestSize = 10;
  Color color{};
  /// The smallest size at which the text is bold.
  double boldFrom = NEVER_BOLD;
  /// Whether the text may take as many lines as its frame has room for. Large text stays a headline of one line.
  bool wraps = false;
  Alignment alignment = Alignment::NATURAL;
  /// Whether the text begins at the top of its frame instead of standing in its middle.
  bool isAtTop = false;
};

/// Draws in points of the screen on a cairo context, whose unit must be the point.
class Canvas {
 public:
  explicit Canvas(cairo_t& context) : context_(&context) {}

  /// While it lives, nothing is drawn outside `frame`, rounded outwards to whole pixels, nor outside earlier clips.
  class Clip {
   public:
    Clip(const Canvas& canvas, const Rect& frame);
    ~Clip();
    Clip(const Clip&) = delete;
    Clip& operator=(const Clip&) = delete;

   private:
    cairo_t* context_;
  };

  void fillAll(const Color& color) const;
  void fill(const Rect& frame, const Color& color) const;
  void fillRounded(const Rect& frame, double radius, const Color& color) const;
  /// The line runs inside the frame.
  void strokeRounded(const Rect& frame, double radius, double lineWidth, const Color& color) const;
  void fillDownwards(const Rect& frame, const Color& top, const Color& bottom) const;
  void fillCircle(const Point& center, double radius, const Color& color) const;
  void strokeCircle(const Point& center, double radius, double lineWidth, const Color& color) const;
  void fillPolygon(std::initializer_list<Point> corners, const Color& color) const;
  /// Through all points, with round ends.
  void strokePath(std::initializer_list<Point> points, double lineWidth, const Color& color) const;

  /// Draws the text into the frame and returns where its last line stands; an empty frame draws nothing.
  Rect text(std::string_view text, const Rect& frame, const TextStyle& style) const;

 private:
  void setColor(const Color& color) const;
  void roundedPath(const Rect& frame, double radius) const;

  cairo_t* context_;
};

}  // namespace quobrak::simulator::painting
