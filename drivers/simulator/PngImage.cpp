#include "drivers/simulator/PngImage.h"

#include <png.h>

#include <csetjmp>
#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace quobrak::simulator {
namespace {

// Measured on screens of apps: levels 1 to 3 take the same time, of which 3 makes the smallest files; level 4 takes
// over one and a half times as long. Filters help photographs; on the even areas of a screen the cheapest of them, the
// difference to the pixel before, makes both the time and the file a sixth larger.
constexpr int COMPRESSION_LEVEL = 3;
constexpr int COMPRESSION_BUFFER_BYTES = 1 << 18;
constexpr int BITS_PER_CHANNEL = 8;
constexpr std::size_t CHANNELS = 3;

bool isComplete(const PixelView& view) {
  constexpr std::size_t LONGEST_SIDE = std::numeric_limits<png_int_32>::max() / 8;
  return view.width > 0 && view.height > 0 && view.width <= LONGEST_SIDE && view.height <= LONGEST_SIDE &&
         view.stride >= view.width && view.pixels.size() >= view.stride * (view.height - 1) + view.width;
}

class PngWriter {
 public:
  PngWriter()
      : png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, jumpBack, ignoreWarning)),
        info_(png_ != nullptr ? png_create_info_struct(png_) : nullptr) {}
  ~PngWriter() { png_destroy_write_struct(&png_, &info_); }
  PngWriter(const PngWriter&) = delete;
  PngWriter& operator=(const PngWriter&) = delete;

  std::optional<Data> encode(const PixelView& view) {
    row_.resize(view.width * CHANNELS);
    if (info_ == nullptr || !writeAll(view)) {
      return std::nullopt;
    }
    return std::move(written_);
  }

 private:
  // Without these two, libpng writes to standard error.
  static void jumpBack(png_structp png, png_const_charp) { png_longjmp(png, EXIT_FAILURE); }
  static void ignoreWarning(png_structp, png_const_charp) {}

  // libpng's frames are C: an exception must not pass through them, so it becomes libpng's own kind of error.
  static void append(png_structp png, png_bytep bytes, std::size_t count) {
    if (!static_cast<PngWriter*>(png_get_io_ptr(png))->tryAppend(std::as_bytes(std::span(bytes, count)))) {
      png_error(png, "out of memory");
    }
  }

  bool tryAppend(DataView bytes) {
    try {
      written_.insert(written_.end(), bytes.begin(), bytes.end());
      return true;
    } catch (const std::bad_alloc&) {
      return false;
    }
  }

  // libpng reports an error by jumping back here, past all destructors: nothing in this frame or below has one.
  bool writeAll(const PixelView& view) {
    if (setjmp(png_jmpbuf(png_)) != 0) {
      return false;
    }
    png_set_write_fn(png_, this, append, nullptr);
    png_set_filter(png_, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_compression_level(png_, COMPRESSION_LEVEL);
    png_set_compression_buffer_size(png_, COMPRESSION_BUFFER_BYTES);
    png_set_IHDR(png_, info_, static_cast<png_uint_32>(view.width), static_cast<png_uint_32>(view.height),
                 BITS_PER_CHANNEL, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE,
                 PNG_FILTER_TYPE_BASE);
    png_write_info(png_, info_);
    for (std::size_t y = 0; y < view.height; ++y) {
      convertRow(view.pixels.data() + y * view.stride);
      png_write_row(png_, row_.data());
    }
    png_write_end(png_, nullptr);
    return true;
  }

  void convertRow(const std::uint32_t* pixels) {
    png_byte* const row = row_.data();
    const std::size_t width = row_.size() / CHANNELS;
    for (std::size_t x = 0; x < width; ++x) {
      row[x * CHANNELS] = static_cast<png_byte>(pixels[x] >> 16U);
      row[x * CHANNELS + 1] = static_cast<png_byte>(pixels[x] >> 8U);
      row[x * CHANNELS + 2] = static_cast<png_byte>(pixels[x]);
    }
  }

  png_structp png_;
  png_infop info_;
  std::vector<png_byte> row_;
  Data written_;
};

}  // namespace

std::optional<Data> encodedPng(const PixelView& view) {
  if (!isComplete(view)) {
    return std::nullopt;
  }
  return PngWriter().encode(view);
}

}  // namespace quobrak::simulator
