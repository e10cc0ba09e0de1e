#include "drivers/simulator/ScreenPainter.h"

#include "drivers/simulator/PngImage.h"
#include "drivers/simulator/ScreenPainting.h"

#include <cairo.h>

#include <cstddef>
#include <cstdint>

namespace quobrak::simulator {
namespace {

// cairo stores a pixel of RGB24 as one 32-bit number of the machine's own byte order.
PixelView pixelsOf(cairo_surface_t* surface) {
  const auto* const data = reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface));
  const auto width = static_cast<std::size_t>(cairo_image_surface_get_width(surface));
  const auto height = static_cast<std::size_t>(cairo_image_surface_get_height(surface));
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface)) / sizeof(std::uint32_t);
  return {{data, stride * height}, width, height, stride};
}

}  // namespace

ScreenPainter::ScreenPainter(Size size, double scale) : size_(size), scale_(scale) {}

std::optional<Data> ScreenPainter::png(std::span<const Element* const> layers, std::span<const Mark> marks) const {
  const painting::Surface surface = painting::paintedScreen(size_, scale_, layers, marks);
  return surface == nullptr ? std::nullopt : encodedPng(pixelsOf(surface.get()));
}

}  // namespace quobrak::simulator
