#include "platform/foundation/TextPlace.h"

#include <algorithm>

namespace quobrak {

namespace {

bool beginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

}  // namespace

TextPlace placeInText(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  const std::string_view line = before.substr(before.rfind('\n') + 1);
  return {.line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1,
          .column = static_cast<std::size_t>(std::count_if(line.begin(), line.end(), beginsCharacter)) + 1};
}

std::size_t offsetOfColumn(std::string_view line, std::size_t column) {
  std::size_t seen = 0;
  const auto place =
      std::find_if(line.begin(), line.end(), [&](char byte) { return beginsCharacter(byte) && ++seen == column; });
  return static_cast<std::size_t>(place - line.begin());
}

}  // namespace quobrak
