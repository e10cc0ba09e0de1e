#include "drivers/xctest/foundation/TextEncodings.h"

#include <array>

namespace quobrak::xctest {

namespace {

constexpr char32_t LAST_CHARACTER = 0x10FFFF;

bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isCharacter(char32_t code) {
  return code <= LAST_CHARACTER && !isHighSurrogate(code) && !isLowSurrogate(code);
}

/// How a character begins: the number of bytes after the first one, what the first one gives to the code, and within
/// what the second one must lie (which rules out overlong forms, surrogates and what is beyond U+10FFFF).
struct Lead {
  std::size_t trailCount;
  char32_t bits;
  unsigned char secondFrom;
  unsigned char secondTo;
};

std::optional<Lead> leadOf(unsigned char byte) {
  constexpr unsigned char FIRST_TRAIL = 0x80;
  constexpr unsigned char LAST_TRAIL = 0xBF;
  if (byte < 0x80) {
    return Lead{0, byte, FIRST_TRAIL, LAST_TRAIL};
  }
  if (byte >= 0xC2 && byte <= 0xDF) {
    return Lead{1, byte & 0x1FU, FIRST_TRAIL, LAST_TRAIL};
  }
  if (byte >= 0xE0 && byte <= 0xEF) {
    const unsigned char from = byte == 0xE0 ? 0xA0 : FIRST_TRAIL;
    const unsigned char to = byte == 0xED ? 0x9F : LAST_TRAIL;
    return Lead{2, byte & 0x0FU, from, to};
  }
  if (byte >= 0xF0 && byte <= 0xF4) {
    const unsigned char from = byte == 0xF0 ? 0x90 : FIRST_TRAIL;
    const unsigned char to = byte == 0xF4 ? 0x8F : LAST_TRAIL;
    return Lead{3, byte & 0x07U, from, to};
  }
  return std::nullopt;
}

/// The unit of `size` bytes that begins at `position`.
char32_t unitAt(std::string_view bytes, std::size_t position, std::size_t size, ByteOrder order) {
  char32_t unit = 0;
  for (std::size_t index = 0; index < size; ++index) {
    const std::size_t offset = order == ByteOrder::bigEndian ? index : size - 1 - index;
    unit = (unit << 8U) | static_cast<unsigned char>(bytes[position + offset]);
  }
  return unit;
}

}  // namespace

std::optional<char32_t> nextCharacter(std::string_view bytes, std::size_t& position) {
  const std::optional<Lead> lead = leadOf(static_cast<unsigned char>(bytes[position++]));
  if (!lead) {
    return std::nullopt;
  }
  char32_t code = lead->bits;
  for (std::size_t index = 0; index < lead->trailCount; ++index) {
    const unsigned char from = index == 0 ? lead->secondFrom : 0x80;
    const unsigned char to = index == 0 ? lead->secondTo : 0xBF;
    if (position == bytes.size()) {
      return std::nullopt;
    }
    const auto trail = static_cast<unsigned char>(bytes[position]);
    if (trail < from || trail > to) {
      return std::nullopt;
    }
    code = (code << 6U) | (trail & 0x3FU);
    ++position;
  }
  return code;
}

std::string inUTF8(char32_t character) {
  if (character < 0x80) {
    return {static_cast<char>(character)};
  }
  // From the last byte to the first.
  std::array<char, 4> bytes{};
  std::size_t begin = bytes.size();
  std::size_t count = 0;
  char32_t rest = character;
  const std::size_t length = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
  for (; count + 1 < length; ++count) {
    bytes[--begin] = static_cast<char>(0x80U | (rest & 0x3FU));
    rest >>= 6U;
  }
  constexpr std::array<unsigned, 5> MARKS{0, 0, 0xC0, 0xE0, 0xF0};
  bytes[--begin] = static_cast<char>(MARKS[length] | rest);
  return {bytes.data() + begin, length};
}

std::optional<std::string> fromUTF16(std::string_view bytes, ByteOrder order) {
  constexpr std::size_t UNIT = 2;
  std::string text;
  for (std::size_t position = 0; position < bytes.size(); position += UNIT) {
    if (bytes.size() - position < UNIT) {
      return std::nullopt;
    }
    char32_t code = unitAt(bytes, position, UNIT, order);
    if (isHighSurrogate(code) && bytes.size() - position >= 2 * UNIT) {
      const char32_t low = unitAt(bytes, position + UNIT, UNIT, order);
      if (isLowSurrogate(low)) {
        code = 0x10000 + ((code - 0xD800) << 10U) + (low - 0xDC00);
        position += UNIT;
      }
    }
    if (!isCharacter(code)) {
      return std::nullopt;
    }
    text += inUTF8(code);
  }
  return text;
}

std::optional<std::string> fromUTF32(std::string_view bytes, ByteOrder order) {
  constexpr std::size_t UNIT = 4;
  std::string text;
  for (std::size_t position = 0; position < bytes.size(); position += UNIT) {
    if (bytes.size() - position < UNIT) {
      return std::nullopt;
    }
    const char32_t code = unitAt(bytes, position, UNIT, order);
    if (!isCharacter(code)) {
      return std::nullopt;
    }
    text += inUTF8(code);
  }
  return text;
}

}  // namespace quobrak::xctest
