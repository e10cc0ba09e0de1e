#include "drivers/simulator/Canvas.h"

#include "drivers/simulator/TextDirection.h"
#include "drivers/simulator/TextLayout.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>
#include <vector>

namespace quobrak::simulator::painting {
namespace {

constexpr double LINE_HEIGHT = 1.2;
// Frames are often given in whole points where the text would need a fraction more.
constexpr double HEIGHT_TOLERANCE = 1.03;
constexpr double LARGEST_WRAPPED = 17.5;

const TextFont& fontOf(const TextStyle& style, double size) {
  return size >= style.boldFrom ? TextFont::bold() : TextFont::regular();
}

struct FittedText {
  std::vector<std::vector<Glyph>> lines;
  double size = 0;
};

FittedText withEllipsis(const BrokenText& broken, double size, double width, const TextFont& font) {
  FittedText fitted{{}, size};
  for (const auto& line : broken.lines) {
    fitted.lines.emplace_back(line.begin(), line.end());
  }
  if (!broken.isComplete) {
    fitted.lines.back() = shortened(broken.lines.back(), font.glyphsOf("…"), width / size);
  }
  return fitted;
}

// The text at the largest size at which it fits without breaking words, or else cut off at the smallest one.
FittedText fitted(std::string_view text, const Size& room, const TextStyle& style) {
  const TextFont* font = nullptr;
  std::vector<Glyph> glyphs;
  for (double size = std::max(style.size, style.smallestSize);; size -= 1) {
    if (&fontOf(style, size) != font) {
      font = &fontOf(style, size);
      glyphs = font->glyphsOf(text);
    }
    const bool isSmallest = size - 1 < style.smallestSize;
    const double lines =
        style.wraps && size <= LARGEST_WRAPPED ? std::floor(room.height * HEIGHT_TOLERANCE / (size * LINE_HEIGHT)) : 1;
    const auto maximumLines = static_cast<std::size_t>(std::max(lines, 1.0));
    const BrokenText broken = brokenIntoLines(glyphs, room.width / size, maximumLines);
    if (isSmallest || (broken.isComplete && !broken.breaksWords)) {
      return withEllipsis(broken, size, room.width, *font);
    }
  }
}

bool isRightToLeft(std::span<const Glyph> line) {
  return !line.empty() && line.front().paragraphLevel == 1;
}

double leftEdge(const Rect& frame, std::span<const Glyph> line, double width, Alignment alignment) {
  const double spare = frame.size.width - width;
  switch (alignment) {
    case Alignment::NATURAL:
      return frame.origin.x + (isRightToLeft(line) ? spare : 0);
    case Alignment::LEFT:
      return frame.origin.x;
    case Alignment::CENTER:
      return frame.origin.x + spare / 2;
    case Alignment::RIGHT:
      return frame.origin.x + spare;
  }
  return frame.origin.x;
}

void showLine(cairo_t& context, std::span<const Glyph> line, double size, const Point& start) {
  std::vector<cairo_glyph_t> placed;
  placed.reserve(line.size());
  double x = start.x;
  for (const Glyph& glyph : inVisualOrder(withoutBlanksAtEnd(line))) {
    if (glyph.kind == Glyph::Kind::INK || glyph.kind == Glyph::Kind::IDEOGRAPH) {
      placed.push_back({glyph.index, x + glyph.right * size, start.y - glyph.above * size});
    }
    x += glyph.advance * size;
  }
  cairo_show_glyphs(&context, placed.data(), static_cast<int>(placed.size()));
}

}  // namespace

Canvas::Clip::Clip(const Canvas& canvas, const Rect& frame) : context_(canvas.context_) {
  double left = frame.origin.x;
  double top = frame.origin.y;
  double right = left + frame.size.width;
  double bottom = top + frame.size.height;
  cairo_user_to_device(context_, &left, &top);
  cairo_user_to_device(context_, &right, &bottom);
  left = std::floor(left);
  top = std::floor(top);
  right = std::ceil(right);
  bottom = std::ceil(bottom);
  cairo_device_to_user(context_, &left, &top);
  cairo_device_to_user(context_, &right, &bottom);
  cairo_save(context_);
  cairo_rectangle(context_, left, top, right - left, bottom - top);
  cairo_clip(context_);
}

Canvas::Clip::~Clip() {
  cairo_restore(context_);
}

void Canvas::setColor(const Color& color) const {
  cairo_set_source_rgba(context_, color.red, color.green, color.blue, color.alpha);
}

void Canvas::roundedPath(const Rect& frame, double radius) const {
  constexpr double QUARTER = std::numbers::pi / 2;
  const double r = std::max(std::min({radius, frame.size.width / 2, frame.size.height / 2}), 0.0);
  const double left = frame.origin.x + r;
  const double top = frame.origin.y + r;
  const double right = frame.origin.x + frame.size.width - r;
  const double bottom = frame.origin.y + frame.size.height - r;
  cairo_new_sub_path(context_);
  cairo_arc(context_, right, top, r, -QUARTER, 0);
  cairo_arc(context_, right, bottom, r, 0, QUARTER);
  cairo_arc(context_, left, bottom, r, QUARTER, 2 * QUARTER);
  cairo_arc(context_, left, top, r, 2 * QUARTER, 3 * QUARTER);
  cairo_close_path(context_);
}

void Canvas::fillAll(const Color& color) const {
  setColor(color);
  cairo_paint(context_);
}

void Canvas::fill(const Rect& frame, const Color& color) const {
  setColor(color);
  cairo_rectangle(context_, frame.origin.x, frame.origin.y, frame.size.width, frame.size.height);
  cairo_fill(context_);
}

void Canvas::fillRounded(const Rect& frame, double radius, const Color& color) const {
  setColor(color);
  roundedPath(frame, radius);
  cairo_fill(context_);
}

void Canvas::strokeRounded(const Rect& frame, double radius, double lineWidth, const Color& color) const {
  const double half = lineWidth / 2;
  setColor(color);
  roundedPath({{frame.origin.x + half, frame.origin.y + half},
               {std::max(frame.size.width - lineWidth, 0.0), std::max(frame.size.height - lineWidth, 0.0)}},
              radius - half);
  cairo_set_line_width(context_, lineWidth);
  cairo_stroke(context_);
}

void Canvas::fillDownwards(const Rect& frame, const Color& top, const Color& bottom) const {
  cairo_pattern_t* const pattern =
      cairo_pattern_create_linear(0, frame.origin.y, 0, frame.origin.y + frame.size.height);
  cairo_pattern_add_color_stop_rgba(pattern, 0, top.red, top.green, top.blue, top.alpha);
  cairo_pattern_add_color_stop_rgba(pattern, 1, bottom.red, bottom.green, bottom.blue, bottom.alpha);
  cairo_set_source(context_, pattern);
  cairo_pattern_destroy(pattern);
  cairo_rectangle(context_, frame.origin.x, frame.origin.y, frame.size.width, frame.size.height);
  cairo_fill(context_);
}

void Canvas::fillCircle(const Point& center, double radius, const Color& color) const {
  setColor(color);
  cairo_arc(context_, center.x, center.y, radius, 0, 2 * std::numbers::pi);
  cairo_fill(context_);
}

void Canvas::strokeCircle(const Point& center, double radius, double lineWidth, const Color& color) const {
  setColor(color);
  cairo_set_line_width(context_, lineWidth);
  cairo_arc(context_, center.x, center.y, radius - lineWidth / 2, 0, 2 * std::numbers::pi);
  cairo_stroke(context_);
}

void Canvas::fillPolygon(std::initializer_list<Point> corners, const Color& color) const {
  setColor(color);
  for (const Point& corner : corners) {
    cairo_line_to(context_, corner.x, corner.y);
  }
  cairo_fill(context_);
}

void Canvas::strokePath(std::initializer_list<Point> points, double lineWidth, const Color& color) const {
  setColor(color);
  cairo_set_line_width(context_, lineWidth);
  cairo_set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
  for (const Point& point : points) {
    cairo_line_to(context_, point.x, point.y);
  }
  cairo_stroke(context_);
}

Rect Canvas::text(std::string_view text, const Rect& frame, const TextStyle& style) const {
  Rect lastLine{frame.origin, {0, frame.size.height}};
  if (frame.size.width <= 0 || frame.size.height <= 0) {
    return lastLine;
  }
  const FittedText drawn = fitted(text, frame.size, style);
  const double lineHeight = drawn.size * LINE_HEIGHT;
  const double spare = frame.size.height - lineHeight * static_cast<double>(drawn.lines.size());
  double top = frame.origin.y + (style.isAtTop ? 0 : spare / 2);
  setColor(style.color);
  fontOf(style, drawn.size).select(*context_, drawn.size);
  for (const auto& line : drawn.lines) {
    const double width = widthOf(line) * drawn.size;
    lastLine = {{leftEdge(frame, line, width, style.alignment), top}, {width, lineHeight}};
    const double leading = lineHeight - (TextFont::ASCENT + TextFont::DESCENT) * drawn.size;
    showLine(*context_, line, drawn.size, {lastLine.origin.x, top + leading / 2 + TextFont::ASCENT * drawn.size});
    top += lineHeight;
  }
  return lastLine;
}

}  // namespace quobrak::simulator::painting
