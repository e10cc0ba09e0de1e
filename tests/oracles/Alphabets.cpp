#include "tests/oracles/Alphabets.h"

#include <libxml/xmlstring.h>

#include <algorithm>
#include <array>

namespace quobrak::oracles {

namespace {

struct Range {
  int first;
  int last;
};

/// Characters without case, of those that screens are likely to show.
constexpr std::array CASELESS{
    Range{0x0000, 0x0040},    // controls, digits and signs of ASCII
    Range{0x005B, 0x0060},    // more signs of ASCII
    Range{0x007B, 0x00A9},    // and of Latin-1
    Range{0x00AB, 0x00B4},    // between the ordinal indicator and the micro sign
    Range{0x00B6, 0x00B9},    // between the micro sign and the other ordinal indicator
    Range{0x00BB, 0x00BF},    // the rest of the signs
    Range{0x00D7, 0x00D7},    // the multiplication sign
    Range{0x00F7, 0x00F7},    // the division sign
    Range{0x0590, 0x109F},    // scripts from Hebrew to Myanmar
    Range{0x1100, 0x11FF},    // parts of Korean syllables
    Range{0x2000, 0x20FF},    // punctuation, currencies
    Range{0x2190, 0x245F},    // arrows, mathematics, technical signs
    Range{0x2500, 0x2BFF},    // drawing, symbols
    Range{0x2E80, 0xA48F},    // Chinese, Japanese
    Range{0xAC00, 0xD7AF},    // Korean
    Range{0xE000, 0xF8FF},    // private use: the pictures of icon fonts
    Range{0xFE00, 0xFE0F},    // variations of what stands before
    Range{0xFFF9, 0xFFFD},    // a picture within a text, a character that is none
    Range{0x1F000, 0x1FAFF},  // emoji
    Range{0x20000, 0x3FFFF},  // more of Chinese
};

bool isCaseless(int character) {
  return std::any_of(CASELESS.begin(), CASELESS.end(),
                     [character](Range range) { return range.first <= character && character <= range.last; });
}

}  // namespace

bool areAllTheAlphabets(std::string_view text) {
  while (!text.empty()) {
    auto length = static_cast<int>(text.size());
    const int character = xmlGetUTF8Char(reinterpret_cast<const xmlChar*>(text.data()), &length);
    const std::string_view written = text.substr(0, static_cast<std::size_t>(length));
    const bool hasPartner =
        CAPITALS.find(written) != CAPITALS.npos || SMALL_LETTERS.find(written) != SMALL_LETTERS.npos;
    if (!hasPartner && !isCaseless(character)) {
      return false;
    }
    text.remove_prefix(written.size());
  }
  return true;
}

}  // namespace quobrak::oracles
