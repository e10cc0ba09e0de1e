#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The encodings of Unicode by their definition. The platform's own converters are of no use here: which ill-formed
/// bytes they let pass differs between them and between releases, and they do not tell where a character begins.
namespace quobrak::xctest {

/// The character that begins at `position` in bytes of UTF-8, none where they are ill-formed; `position` moves behind
/// it (behind the longest beginning of a character, where they are ill-formed, and by at least one byte).
std::optional<char32_t> nextCharacter(std::string_view bytes, std::size_t& position);

/// A character in UTF-8. It must be one: no surrogate, and not beyond U+10FFFF.
std::string inUTF8(char32_t character);

enum class ByteOrder { bigEndian, littleEndian };

/// The text in UTF-8; none where the bytes are ill-formed.
std::optional<std::string> fromUTF16(std::string_view bytes, ByteOrder order);
std::optional<std::string> fromUTF32(std::string_view bytes, ByteOrder order);

}  // namespace quobrak::xctest
