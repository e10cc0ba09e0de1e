#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/foundation/Data.h"

namespace quobrak::simulator {

/// Pixels that someone else owns, row by row from the top: 0xRRGGBB in each, whatever stands in the highest byte.
struct PixelView {
  std::span<const std::uint32_t> pixels;
  std::size_t width = 0;
  std::size_t height = 0;
  /// Pixels from the start of one row to the start of the next, at least `width`.
  std::size_t stride = 0;
};

/// The pixels as PNG of 8-bit RGB, made for speed rather than for the fewest bytes. None where that cannot be: no
/// pixels at all, fewer than the measures say, or more than the PNG library takes.
std::optional<Data> encodedPng(const PixelView& view);

}  // namespace quobrak::simulator
