#pragma once

#include <cstddef>
#include <string_view>

namespace quobrak {

/// A place in a text, as people and editors count: both from 1, the column in code points.
struct TextPlace {
  std::size_t line = 1;
  std::size_t column = 1;

  bool operator==(const TextPlace&) const = default;
  bool operator<(const TextPlace& other) const {
    return line == other.line ? column < other.column : line < other.line;
  }
};

/// The place of the byte at that offset, which may be one past the end, in a text of UTF-8.
TextPlace placeInText(std::string_view text, std::size_t offset);

/// The offset of the code point in that column of a line of UTF-8; the line's size where it has fewer.
std::size_t offsetOfColumn(std::string_view line, std::size_t column);

}  // namespace quobrak
