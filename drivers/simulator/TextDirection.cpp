#include "drivers/simulator/TextDirection.h"

#include "platform/foundation/Unicode.h"

#include <fribidi.h>

#include <algorithm>
#include <numeric>
#include <string>

namespace quobrak::simulator::painting {
namespace {

FriBidiStrIndex indexOf(std::size_t size) {
  return static_cast<FriBidiStrIndex>(size);
}

std::vector<FriBidiCharType> typesOf(std::span<const std::uint32_t> text) {
  std::vector<FriBidiCharType> types(text.size());
  fribidi_get_bidi_types(text.data(), indexOf(text.size()), types.data());
  return types;
}

// The scripts that are written from right to left begin at U+0590.
bool isBelowRightToLeftScripts(std::string_view text) {
  constexpr unsigned char FIRST_BYTE_FROM_U0580_ON = 0xD6;
  return std::all_of(text.begin(), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < FIRST_BYTE_FROM_U0580_ON; });
}

}  // namespace

CodePoints codePointsOf(std::string_view text) {
  CodePoints codePoints(text.size());
  const FriBidiStrIndex count =
      fribidi_charset_to_unicode(FRIBIDI_CHAR_SET_UTF8, text.data(), indexOf(text.size()), codePoints.data());
  codePoints.resize(static_cast<std::size_t>(count));
  return codePoints;
}

bool isRightToLeft(std::string_view text) {
  if (isBelowRightToLeftScripts(text)) {
    return false;
  }
  const std::vector<FriBidiCharType> types = typesOf(codePointsOf(repairedUTF8(text)));
  return fribidi_get_par_direction(types.data(), indexOf(types.size())) == FRIBIDI_PAR_RTL;
}

ParagraphLevels levelsOf(std::span<const std::uint32_t> paragraph) {
  const std::vector<FriBidiCharType> types = typesOf(paragraph);
  std::vector<FriBidiBracketType> brackets(paragraph.size());
  fribidi_get_bracket_types(paragraph.data(), indexOf(paragraph.size()), types.data(), brackets.data());
  FriBidiParType direction = FRIBIDI_PAR_ON;
  ParagraphLevels result{0, std::vector<signed char>(paragraph.size())};
  const FriBidiLevel highest = fribidi_get_par_embedding_levels_ex(
      types.data(), brackets.data(), indexOf(paragraph.size()), &direction, result.levels.data());
  if (highest == 0) {
    return {0, std::vector<signed char>(paragraph.size())};
  }
  result.base = FRIBIDI_IS_RTL(direction) ? 1 : 0;
  return result;
}

std::vector<Glyph> inVisualOrder(std::span<const Glyph> line) {
  std::vector<Glyph> result(line.begin(), line.end());
  if (std::all_of(line.begin(), line.end(), [](const Glyph& glyph) { return glyph.level == 0; })) {
    return result;
  }
  // Types make a difference for the blanks at a line's end only.
  const std::vector<FriBidiCharType> types(line.size(), FRIBIDI_TYPE_ON);
  std::vector<FriBidiLevel> levels(line.size());
  std::transform(line.begin(), line.end(), levels.begin(), [](const Glyph& glyph) { return glyph.level; });
  std::vector<FriBidiStrIndex> places(line.size());
  std::iota(places.begin(), places.end(), 0);
  const FriBidiParType direction = line.front().paragraphLevel == 1 ? FRIBIDI_PAR_RTL : FRIBIDI_PAR_LTR;
  const FriBidiLevel highest =
      fribidi_reorder_line(0, types.data(), indexOf(line.size()), 0, direction, levels.data(), nullptr, places.data());
  if (highest > 0) {
    std::transform(places.begin(), places.end(), result.begin(),
                   [&](FriBidiStrIndex place) { return line[static_cast<std::size_t>(place)]; });
  }
  return result;
}

}  // namespace quobrak::simulator::painting
