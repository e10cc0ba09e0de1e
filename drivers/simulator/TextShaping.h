#pragma once

#include <string_view>
#include <vector>

#include "drivers/simulator/Glyph.h"

namespace quobrak::simulator::painting {

/// Whether the text has characters that join, combine or change the direction, so that a glyph for each code point, one
/// after the other, would not show it.
bool needsShaping(std::string_view text);

/// The glyphs of a well-formed UTF-8 text in the font that comes with the program: letters joined as their script
/// wants, marks on their letters. A user-perceived character of which the font lacks anything is one box.
/// Letters are as wide in bold.
std::vector<Glyph> shapedGlyphs(std::string_view text);

}  // namespace quobrak::simulator::painting
