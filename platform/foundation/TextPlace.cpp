#include "platform/foundation/TextPlace.h"

#include <algorithm>

namespace quobrak {

TextPlace placeInText(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  const std::string_view line = before.substr(before.rfind('\n') + 1);
  const auto beginsCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
  return {.line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1,
          .column = static_cast<std::size_t>(std::count_if(line.begin(), line.end(), beginsCharacter)) + 1};
}

}  // namespace quobrak
