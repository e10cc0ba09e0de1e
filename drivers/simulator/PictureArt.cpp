// Images, icons and maps.

#include "drivers/simulator/ElementArt.h"

#include <algorithm>

namespace quobrak::simulator::painting {
namespace {

constexpr Color IMAGE_FILL{0.90, 0.91, 0.93};
constexpr Color IMAGE_SHAPE{0.74, 0.76, 0.80};
constexpr Color IMAGE_SUN{0.82, 0.84, 0.87};

// Mountains and a sun stand for whatever the picture shows.
void drawLandscape(const Canvas& canvas, const Rect& frame) {
  const double side = std::min(frame.size.width, frame.size.height) * 0.7;
  const Point middle = centre(frame);
  const auto at = [&](double x, double y) { return Point{middle.x + x * side, middle.y + y * side}; };
  canvas.fillCircle(at(-0.22, -0.22), side * 0.11, IMAGE_SUN);
  canvas.fillPolygon({at(-0.55, 0.36), at(-0.18, -0.06), at(0.16, 0.36)}, IMAGE_SUN);
  canvas.fillPolygon({at(-0.25, 0.36), at(0.18, -0.24), at(0.58, 0.36)}, IMAGE_SHAPE);
}

void drawImage(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double SMALLEST_LANDSCAPE = 14;
  constexpr double SMALLEST_CAPTIONED = 100;
  constexpr double CAPTION_HEIGHT = 26;
  const double shorter = std::min(frame.size.width, frame.size.height);
  const bool isBanner = frame.origin.x <= 0;
  canvas.fillRounded(frame, isBanner ? 0 : std::min(10.0, shorter / 6), IMAGE_FILL);
  if (shorter < SMALLEST_LANDSCAPE) {
    return;
  }
  if (element.label.empty() || shorter < SMALLEST_CAPTIONED) {
    drawLandscape(canvas, frame);
    return;
  }
  drawLandscape(canvas, {frame.origin, {frame.size.width, frame.size.height - CAPTION_HEIGHT}});
  const Rect caption{{frame.origin.x + 8, frame.origin.y + frame.size.height - CAPTION_HEIGHT - 4},
                     {frame.size.width - 16, CAPTION_HEIGHT}};
  canvas.text(element.label, caption, {.size = 13, .color = SECONDARY_TEXT, .alignment = Alignment::CENTER});
}

void drawIcon(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double LABEL_HEIGHT = 18;
  constexpr double LARGEST_TILE = 64;
  const double side = std::max(std::min({frame.size.width, frame.size.height - LABEL_HEIGHT, LARGEST_TILE}), 4.0);
  const Rect tile{{centre(frame).x - side / 2, frame.origin.y}, {side, side}};
  const Color color = colorOf(element.label);
  const Color shade{color.red * 0.82, color.green * 0.82, color.blue * 0.82};
  canvas.fillRounded(tile, side * 0.23, inkOf(element, shade));
  canvas.fillRounded({tile.origin, {side, side - 1}}, side * 0.23, inkOf(element, color));
  canvas.text(firstCharacter(element.label), tile,
              {.size = std::max(side * 0.5, 8.0), .smallestSize = 6, .color = WHITE, .alignment = Alignment::CENTER});
  canvas.text(element.label, {{frame.origin.x, frame.origin.y + side + 2}, {frame.size.width, LABEL_HEIGHT - 2}},
              {.size = 12, .smallestSize = 9, .color = {0.13, 0.13, 0.16}, .alignment = Alignment::CENTER});
}

void drawMap(const Canvas& canvas, const Element& element, const Rect& frame) {
  constexpr double STREET_DISTANCE = 72;
  constexpr Color LAND{0.93, 0.94, 0.89};
  constexpr Color WATER{0.72, 0.85, 0.94};
  const double right = frame.origin.x + frame.size.width;
  const double bottom = frame.origin.y + frame.size.height;
  canvas.fill(frame, LAND);
  canvas.fillPolygon({{right, frame.origin.y + frame.size.height * 0.35},
                      {right, bottom},
                      {frame.origin.x + frame.size.width * 0.4, bottom}},
                     WATER);
  for (double x = frame.origin.x + STREET_DISTANCE / 2; x < right; x += STREET_DISTANCE) {
    canvas.strokePath({{x, frame.origin.y}, {x - 20, bottom}}, 5, WHITE);
  }
  for (double y = frame.origin.y + STREET_DISTANCE / 2; y < bottom; y += STREET_DISTANCE) {
    canvas.strokePath({{frame.origin.x, y}, {right, y + 14}}, 5, WHITE);
  }
  canvas.text(element.label, inset(frame, 12, 8), {.size = 13, .color = SECONDARY_TEXT, .isAtTop = true});
}

void drawColorWell(const Canvas& canvas, const Element& element, const Rect& frame) {
  const double radius = std::min(frame.size.width, frame.size.height) / 2;
  canvas.fillCircle(centre(frame), radius, colorOf(element.value.value_or(element.label)));
  canvas.fillCircle(centre(frame), radius * 0.6, WHITE);
}

constexpr Art ROWS[] = {
    {ElementType::image, drawImage},
    {ElementType::icon, drawIcon},
    {ElementType::map, drawMap},
    {ElementType::colorWell, drawColorWell},
};

}  // namespace

std::span<const Art> pictureArt() {
  return ROWS;
}

}  // namespace quobrak::simulator::painting
