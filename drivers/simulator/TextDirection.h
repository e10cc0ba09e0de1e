#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "drivers/simulator/Glyph.h"

namespace quobrak::simulator::painting {

using CodePoints = std::vector<std::uint32_t>;

/// The code points of a well-formed UTF-8 text.
CodePoints codePointsOf(std::string_view text);

/// Whether a UTF-8 text reads from right to left as a whole: its first letter of a direction decides. A text without
/// one, such as a number, does not.
bool isRightToLeft(std::string_view text);

/// The bidirectional levels of a paragraph: its own, and one for each code point.
struct ParagraphLevels {
  signed char base = 0;
  std::vector<signed char> levels;
};

/// Their order by the Unicode bidirectional algorithm.
ParagraphLevels levelsOf(std::span<const std::uint32_t> paragraph);

/// The glyphs of one line, without blanks at its end, as they stand from left to right.
std::vector<Glyph> inVisualOrder(std::span<const Glyph> line);

}  // namespace quobrak::simulator::painting
