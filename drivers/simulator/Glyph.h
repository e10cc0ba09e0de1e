#pragma once

namespace quobrak::simulator::painting {

/// One sign of a text as it is drawn: a character, several that have grown together, or a part of one, such as a mark.
/// A text's glyphs stand in the order in which it is read.
struct Glyph {
  enum class Kind { INK, IDEOGRAPH, BLANK, NEWLINE };

  /// Its number in the font; 0 is the box of a character that the font lacks.
  unsigned long index = 0;
  /// Its width at a font size of 1.
  double advance = 0;
  Kind kind = Kind::INK;
  /// How far to the right of its place, and how far above it, it is drawn at a font size of 1.
  double right = 0;
  double above = 0;
  /// How deep it is embedded into text of other directions: from left to right at even levels, from right to left at
  /// odd ones. The paragraph's own level is 0 or 1.
  signed char level = 0;
  signed char paragraphLevel = 0;
  /// Whether it is a part of the same character as the glyph before it, from which it must not be parted.
  bool isAttached = false;
};

}  // namespace quobrak::simulator::painting
