#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the program needs to know about characters. Texts are UTF-8 throughout. Off the phone ICU answers; on the
/// phone, where there is no ICU, the platform's own foundation does.
namespace quobrak {

/// Whether the bytes are well-formed UTF-8. NUL bytes are characters like others.
bool isUTF8(std::string_view bytes);

/// The text with every ill-formed sequence replaced by U+FFFD.
std::string repairedUTF8(std::string_view bytes);

/// The text in a file's bytes: a byte-order mark of UTF-8, UTF-16 or UTF-32 tells the encoding and is dropped; without
/// one the bytes are UTF-8. None where the bytes are ill-formed in that encoding.
std::optional<std::string> decodedText(std::string bytes);

/// The text without the blanks at its ends. A blank is a tab or a character of general category Zs, so no newline.
std::string_view trimmedBlanks(std::string_view text);

/// Whether a newline character starts the text, and how many bytes it takes (0 where none does). The newlines are
/// U+000A to U+000D, U+0085, U+2028 and U+2029; a carriage return and the line feed after it are two newlines.
std::size_t newlineLength(std::string_view text);

/// The number of user-perceived characters (extended grapheme clusters).
std::size_t characterCount(std::string_view text);

/// The user-perceived characters (extended grapheme clusters) in their order, as parts of the text.
std::vector<std::string_view> characters(std::string_view text);

/// A text folded for comparing without regard to case: full case folding, so that ß becomes ss.
struct FoldedText {
  std::string text;
  /// Ascending byte positions in `text` that lie inside what one character folded to. A match neither begins nor ends
  /// there: İ folds to i and a combining dot, and yet İstanbul does not contain i.
  std::vector<std::uint32_t> insideOneCharacter;
};

FoldedText caseFolded(std::string_view text);

/// Whether the folded text contains the folded needle between whole characters. An empty needle is contained nowhere.
bool contains(const FoldedText& text, const FoldedText& needle);

}  // namespace quobrak
