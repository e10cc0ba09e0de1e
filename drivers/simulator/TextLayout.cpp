#include "drivers/simulator/TextLayout.h"

#include <algorithm>

namespace quobrak::simulator::painting {
namespace {

bool isBlank(const Glyph& glyph) {
  return glyph.kind == Glyph::Kind::BLANK || glyph.kind == Glyph::Kind::NEWLINE;
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
    if (glyph.kind == Glyph::Kind::IDEOGRAPH && position > 0) {
      lastChance = {position, position};
    }
    used += glyph.advance;
    if (used > width && glyph.kind != Glyph::Kind::BLANK) {
      const bool hasChance = lastChance.next > 0;
      const std::size_t atLeastOne = std::max<std::size_t>(position, 1);
      return hasChance ? lastChance : LineBreak{atLeastOne, atLeastOne, true};
    }
    if (glyph.kind == Glyph::Kind::BLANK) {
      lastChance = {position, position + 1};
    } else if (glyph.kind == Glyph::Kind::IDEOGRAPH) {
      lastChance = {position + 1, position + 1};
    }
  }
  return {glyphs.size(), glyphs.size()};
}

}  // namespace

double widthOf(std::span<const Glyph> line) {
  while (!line.empty() && isBlank(line.back())) {
    line = line.first(line.size() - 1);
  }
  double width = 0;
  for (const Glyph& glyph : line) {
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
  while (!line.empty() && (isBlank(line.back()) || widthOf(line) > room)) {
    line = line.first(line.size() - 1);
  }
  std::vector<Glyph> result(line.begin(), line.end());
  result.insert(result.end(), ending.begin(), ending.end());
  return result;
}

}  // namespace quobrak::simulator::painting
