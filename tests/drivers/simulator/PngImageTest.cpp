#include "drivers/simulator/PngImage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quobrak::simulator {
namespace {

using testing::ElementsAre;

struct DecodedImage {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  bool isPlainRGB = false;
  std::vector<std::uint8_t> bytes;
};

DecodedImage decoded(const Data& png) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  EXPECT_NE(png_image_begin_read_from_memory(&image, png.data(), png.size()), 0) << image.message;
  DecodedImage result{image.width, image.height, image.format == PNG_FORMAT_RGB, {}};
  image.format = PNG_FORMAT_RGB;
  result.bytes.resize(PNG_IMAGE_SIZE(image));
  EXPECT_NE(png_image_finish_read(&image, nullptr, result.bytes.data(), 0, nullptr), 0) << image.message;
  return result;
}

TEST(PngImage, DecodesToThePixelsThatWereGiven) {
  const std::array<std::uint32_t, 6> pixels{0x000000, 0xFFFFFF, 0x102030, 0xFF0000, 0x00FF00, 0x0000FF};

  const auto png = encodedPng({pixels, 3, 2, 3});

  ASSERT_TRUE(png.has_value());
  const DecodedImage image = decoded(*png);
  EXPECT_EQ(image.width, 3U);
  EXPECT_EQ(image.height, 2U);
  EXPECT_THAT(image.bytes, ElementsAre(0x00, 0x00, 0x00, 0xFF, 0xFF, 0xFF, 0x10, 0x20, 0x30,  //
                                       0xFF, 0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0xFF));
}

TEST(PngImage, LeavesOutTheHighestByteOfEachPixel) {
  const std::array<std::uint32_t, 2> pixels{0x80112233, 0xFF112233};

  const auto png = encodedPng({pixels, 2, 1, 2});

  ASSERT_TRUE(png.has_value());
  const DecodedImage image = decoded(*png);
  EXPECT_TRUE(image.isPlainRGB);
  EXPECT_THAT(image.bytes, ElementsAre(0x11, 0x22, 0x33, 0x11, 0x22, 0x33));
}

TEST(PngImage, LeavesOutWhatStandsBetweenTheRows) {
  const std::array<std::uint32_t, 3> pixels{0x010101, 0xEEEEEE, 0x020202};

  const auto png = encodedPng({pixels, 1, 2, 2});

  ASSERT_TRUE(png.has_value());
  EXPECT_THAT(decoded(*png).bytes, ElementsAre(1, 1, 1, 2, 2, 2));
}

TEST(PngImage, BeginsWithTheSignatureAndEndsWithTheLastChunk) {
  const std::array<std::uint32_t, 1> pixels{0};

  const auto png = encodedPng({pixels, 1, 1, 1});

  ASSERT_TRUE(png.has_value());
  EXPECT_TRUE(textOf(*png).starts_with("\x89PNG\r\n\x1A\n"));
  EXPECT_TRUE(textOf(*png).ends_with("IEND\xAE\x42\x60\x82"));
}

TEST(PngImage, IsNoneWhereThePixelsDoNotFillTheMeasures) {
  const std::vector<std::uint32_t> pixels(6);
  const struct {
    std::string_view name;
    PixelView view;
  } rows[] = {
      {"no width", {pixels, 0, 2, 3}},
      {"no height", {pixels, 3, 0, 3}},
      {"a stride shorter than the rows", {pixels, 3, 2, 2}},
      {"one pixel too few", {std::span(pixels).first(5), 3, 2, 3}},
      {"wider than PNG can hold", {pixels, std::size_t{1} << 40U, 1, std::size_t{1} << 40U}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(encodedPng(row.view), std::nullopt) << row.name;
  }
}

TEST(PngImage, IsNoneWhereTheLibraryRefusesTheMeasures) {
  // libpng takes no more than a million pixels to a side unless it is told otherwise.
  const std::vector<std::uint32_t> pixels(1'000'001);

  EXPECT_EQ(encodedPng({pixels, pixels.size(), 1, pixels.size()}), std::nullopt);
}

}  // namespace
}  // namespace quobrak::simulator
