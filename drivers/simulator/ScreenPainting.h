#pragma once

#include <cairo.h>

#include <memory>
#include <span>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/ScreenPainter.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator::painting {

struct SurfaceDeleter {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;

/// The layers drawn onto a new image of `CAIRO_FORMAT_RGB24`, the first layer at the bottom, and the marks over them.
/// Null where cairo can make no image of that size.
Surface paintedScreen(const Size& size, double scale, std::span<const Element* const> layers,
                      std::span<const Mark> marks);

}  // namespace quobrak::simulator::painting
