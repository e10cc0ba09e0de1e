#include "drivers/simulator/ScreenPainting.h"

#include "drivers/simulator/Canvas.h"
#include "drivers/simulator/ElementArt.h"
#include "drivers/simulator/MarkArt.h"
#include "drivers/simulator/Rectangles.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quobrak::simulator::painting {
namespace {

// Beyond this many points from the screen's corner nothing is seen, and cairo's fixed-point numbers would end.
constexpr double FARTHEST = 20000;

Rect cutToReach(const Rect& frame) {
  const double left = std::max(frame.origin.x, -FARTHEST);
  const double top = std::max(frame.origin.y, -FARTHEST);
  const double right = std::min(frame.origin.x + frame.size.width, FARTHEST);
  const double bottom = std::min(frame.origin.y + frame.size.height, FARTHEST);
  return {{left, top}, {right - left, bottom - top}};
}

Color opaque(std::uint32_t rgb) {
  constexpr std::uint32_t BYTE = 0xFF;
  constexpr double FULL = 255;
  return {((rgb >> 16U) & BYTE) / FULL, ((rgb >> 8U) & BYTE) / FULL, (rgb & BYTE) / FULL};
}

class LayerPainter {
 public:
  LayerPainter(const Canvas& canvas, const Size& screen) : canvas_(canvas), screen_(screen) {}

  void paint(const Element& element) const {
    const bool canBeSeen = isOnScreen(element.frame);
    const Rect frame = canBeSeen ? cutToReach(element.frame) : Rect{};
    if (canBeSeen && !element.isHidden) {
      paintAlone(element, frame);
    }
    std::optional<Canvas::Clip> clip;
    if (clipsItsChildren(element.type)) {
      clip.emplace(canvas_, frame);
    }
    for (const auto& child : element.children()) {
      paint(*child);
    }
  }

 private:
  bool isOnScreen(const Rect& frame) const { return !isEmpty(frame) && !isEmpty(intersection(frame, {{}, screen_})); }

  void paintAlone(const Element& element, const Rect& frame) const {
    if (isModal(element.type)) {
      canvas_.fillAll({0, 0, 0, 0.4});
    }
    if (element.background) {
      canvas_.fill(frame, opaque(*element.background));
    }
    const Drawing draw = drawingOf(element.type);
    if (draw != nullptr && !(element.background && clipsItsChildren(element.type))) {
      const Canvas::Clip clip(canvas_, frame);
      draw(canvas_, element, frame);
    }
  }

  const Canvas& canvas_;
  Size screen_;
};

// A home screen, which is the one with icons, has a wallpaper.
void paintBackground(const Canvas& canvas, const Size& size, std::span<const Element* const> layers) {
  const bool hasIcons = std::any_of(layers.begin(), layers.end(),
                                    [](const Element* layer) { return contains(*layer, ElementType::icon); });
  if (hasIcons) {
    canvas.fillDownwards({{}, size}, {0.80, 0.88, 0.97}, {0.97, 0.90, 0.88});
  } else {
    canvas.fillAll(WHITE);
  }
}

struct ContextDeleter {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};

// No side of an image may be longer in cairo.
constexpr double LONGEST_SIDE = 32767;

int pixels(double points, double scale) {
  return static_cast<int>(std::fmin(std::fmax(std::round(points * scale), 0.0), LONGEST_SIDE));
}

}  // namespace

Surface paintedScreen(const Size& size, double scale, std::span<const Element* const> layers,
                      std::span<const Mark> marks) {
  Surface surface(
      cairo_image_surface_create(CAIRO_FORMAT_RGB24, pixels(size.width, scale), pixels(size.height, scale)));
  const std::unique_ptr<cairo_t, ContextDeleter> context(cairo_create(surface.get()));
  cairo_scale(context.get(), scale, scale);
  const Canvas canvas(*context);
  paintBackground(canvas, size, layers);
  for (const Element* layer : layers) {
    LayerPainter(canvas, size).paint(*layer);
  }
  paintMarks(canvas, size, marks);
  cairo_surface_flush(surface.get());
  if (cairo_status(context.get()) != CAIRO_STATUS_SUCCESS) {
    return nullptr;
  }
  return surface;
}

}  // namespace quobrak::simulator::painting
