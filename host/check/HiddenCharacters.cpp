#include "host/check/HiddenCharacters.h"

#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <ios>
#include <sstream>

#include "platform/foundation/NSRegularExpression.h"

namespace quobrak::host {

std::optional<std::string_view> firstInvisible(std::string_view text) {
  static const NSRegularExpression INVISIBLE(R"([\p{Cf}[\p{Zs}-[\x20]]])");
  // A text has no more UTF-16 units than bytes.
  return INVISIBLE.firstMatch(text, text.size());
}

std::optional<std::string_view> firstControl(std::string_view text) {
  constexpr unsigned char DELETE = 0x7F;
  // The control characters U+0080 to U+009F are this byte and one below that.
  constexpr unsigned char LEAD_OF_SECOND_SET = 0xC2;
  constexpr unsigned char BEHIND_SECOND_SET = 0xA0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte < ' ' && byte != '\t') || byte == DELETE) {
      return text.substr(i, 1);
    }
    if (byte == LEAD_OF_SECOND_SET && i + 1 < text.size() &&
        static_cast<unsigned char>(text[i + 1]) < BEHIND_SECOND_SET) {
      return text.substr(i, 2);
    }
  }
  return std::nullopt;
}

std::string numberOf(std::string_view character) {
  constexpr std::uint32_t BITS_OF_TRAIL = 6;
  const auto lead = static_cast<unsigned char>(character.front());
  // A lead byte has as many ones at its top as the character has bytes, where these are several, and then a zero.
  std::uint32_t number = character.size() == 1 ? lead : lead & (0x7FU >> character.size());
  for (const char trail : character.substr(1)) {
    number = (number << BITS_OF_TRAIL) | (static_cast<unsigned char>(trail) & 0x3FU);
  }
  std::ostringstream text;
  text << "U+" << std::uppercase << std::hex << std::setw(4) << std::setfill('0') << number;
  return text.str();
}

}  // namespace quobrak::host
