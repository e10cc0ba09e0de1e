#include "drivers/simulator/TextLayout.h"

#include <algorithm>

namespace quobrak::simulator::painting {
namespace {

bool isBlank(const Glyph& glyph) {
  return glyph.kind == Glyph::Kind::BLANK || glyph.kind == Glyph::Kind::NEWLINE;
}

bool begins(std::span<const Glyph> glyphs, std::size_t position) {
  return position == glyphs.size() || !glyphs[position].isAttached;
}

// The last place up to `position` where a character ends; where even the first one goes on, the end of that.
std::size_t endOfWholeCharacters(std::span<const Glyph> glyphs, std::size_t position) {
  std::size_t end = position;
  while (end > 0 && !begins(glyphs, end)) {
    --end;
  }
  if (end > 0) {
    return end;
  }
  do {
    ++end;
  } while (!begins(glyphs, end));
  return end;
}

// Where a line ends and the next one begins: what stands between is left out.
struct LineBreak {
  std::size_t end = 0;
  std::size_t next = 0;
  bool isInsideWord = false;
};

// What fits on the line that begins at the first glyph.
LineBreak lineBreakIn(std::span<const Glyph> glyphs, double width) {
  LineBreak lastChance;
  double used = 0;
  for (std::size_t position = 0; position < glyphs.size(); ++position) {
    const Glyph& glyph = glyphs[position];
    if (glyph.kind == Glyph::Kind::NEWLINE) {
      return {position, position + 1};
    }
    const bool isBesideIdeograph =
        position > 0 && (glyph.kind == Glyph::Kind::IDEOGRAPH || glyphs[position - 1].kind == Glyph::Kind::IDEOGRAPH);
    if (isBesideIdeograph && begins(glyphs, position)) {
      lastChance = {position, position};
    }
    used += glyph.advance;
    if (used > width && glyph.kind != Glyph::Kind::BLANK) {
      const bool hasChance = lastChance.next > 0;
      const std::size_t atLeastOne = endOfWholeCharacters(glyphs, position);
      return hasChance ? lastChance : LineBreak{atLeastOne, atLeastOne, true};
    }
    if (glyph.kind == Glyph::Kind::BLANK) {
      lastChance = {position, position + 1};
    }
  }
  return {glyphs.size(), glyphs.size()};
}

std::span<const Glyph> withoutLastCharacter(std::span<const Glyph> line) {
  std::size_t end = line.size() - 1;
  while (end > 0 && !begins(line, end)) {
    --end;
  }
  return line.first(end);
}

}  // namespace

Glyph::Kind kindOf(std::string_view character) {
  constexpr unsigned char FIRST_BYTE_FROM_U3000_ON = 0xE3;
  if (character == "\n" || character == "\r") {
    return Glyph::Kind::NEWLINE;
  }
  if (character == " " || character == "\t") {
    return Glyph::Kind::BLANK;
  }
  return static_cast<unsigned char>(character.front()) >= FIRST_BYTE_FROM_U3000_ON ? Glyph::Kind::IDEOGRAPH
                                                                                   : Glyph::Kind::INK;
}

std::span<const Glyph> withoutBlanksAtEnd(std::span<const Glyph> line) {
  while (!line.empty() && isBlank(line.back())) {
    line = line.first(line.size() - 1);
  }
  return line;
}

double widthOf(std::span<const Glyph> line) {
  double width = 0;
  for (const Glyph& glyph : withoutBlanksAtEnd(line)) {
    width += glyph.advance;
  }
  return width;
}

BrokenText brokenIntoLines(std::span<const Glyph> glyphs, double width, std::size_t maximumLines) {
  BrokenText broken;
  do {
    const LineBreak found = lineBreakIn(glyphs, width);
    broken.lines.push_back(glyphs.first(found.end));
    broken.breaksWords = broken.breaksWords || found.isInsideWord;
    glyphs = glyphs.subspan(found.next);
  } while (!glyphs.empty() && broken.lines.size() < maximumLines);
  broken.isComplete = glyphs.empty();
  return broken;
}

std::vector<Glyph> shortened(std::span<const Glyph> line, std::span<const Glyph> ending, double width) {
  const double room = width - widthOf(ending);
  const signed char paragraphLevel = line.empty() ? Glyph{}.paragraphLevel : line.front().paragraphLevel;
  while (!line.empty() && (isBlank(line.back()) || widthOf(line) > room)) {
    line = withoutLastCharacter(line);
  }
  std::vector<Glyph> result(line.begin(), line.end());
  for (Glyph glyph : ending) {
    glyph.level = paragraphLevel;
    glyph.paragraphLevel = paragraphLevel;
    result.push_back(glyph);
  }
  return result;
}

}  // namespace quobrak::simulator::painting
