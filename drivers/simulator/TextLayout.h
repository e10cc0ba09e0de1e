#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "drivers/simulator/Glyph.h"

namespace quobrak::simulator::painting {

/// What a user-perceived character is to the breaking of lines.
Glyph::Kind kindOf(std::string_view character);

/// A text broken into lines. The lines look into the glyphs that were given.
struct BrokenText {
  std::vector<std::span<const Glyph>> lines;
  /// Whether all of the text is in `lines`.
  bool isComplete = true;
  /// Whether a word was too long for a line and is spread over several.
  bool breaksWords = false;
};

std::span<const Glyph> withoutBlanksAtEnd(std::span<const Glyph> line);

/// The width at a font size of 1, without the blanks at the end.
double widthOf(std::span<const Glyph> line);

/// Breaks at newlines, between words and between ideographs, and inside a word only where the word fits on no line;
/// never inside a character.
/// `width` is that of a line at a font size of 1. At most `maximumLines` are made, but at least one.
BrokenText brokenIntoLines(std::span<const Glyph> glyphs, double width, std::size_t maximumLines);

/// The start of the line that leaves room for `ending` within `width`, with `ending` after it, in the direction
/// of the line's paragraph.
std::vector<Glyph> shortened(std::span<const Glyph> line, std::span<const Glyph> ending, double width);

}  // namespace quobrak::simulator::painting
