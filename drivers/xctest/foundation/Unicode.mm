#import <Foundation/Foundation.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#import "drivers/xctest/foundation/PlatformText.h"
#include "drivers/xctest/foundation/TextEncodings.h"
#include "platform/foundation/Unicode.h"

namespace quobrak {

namespace {

using xctest::ByteOrder;
using xctest::nextCharacter;
using xctest::PlatformText;

constexpr std::string_view REPLACEMENT_CHARACTER = "\xEF\xBF\xBD";

bool isASCII(char byte) {
  return static_cast<unsigned char>(byte) < 0x80;
}

bool isTrail(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// A tab, or of general category Zs. The platform's set of white space has the zero-width space too.
bool isBlank(std::optional<char32_t> character) {
  constexpr std::array<char32_t, 7> BLANKS{'\t', ' ', 0xA0, 0x1680, 0x202F, 0x205F, 0x3000};
  return character && ((*character >= 0x2000 && *character <= 0x200A) ||
                       std::find(BLANKS.begin(), BLANKS.end(), *character) != BLANKS.end());
}

std::string_view withoutLeadingBlanks(std::string_view text) {
  std::size_t begin = 0;
  for (std::size_t next = 0; next < text.size(); begin = next) {
    if (!isBlank(nextCharacter(text, next))) {
      break;
    }
  }
  return text.substr(begin);
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  std::size_t end = text.size();
  while (end > 0) {
    std::size_t begin = end - 1;
    while (begin > 0 && isTrail(text[begin])) {
      --begin;
    }
    std::size_t next = begin;
    if (!isBlank(nextCharacter(text, next)) || next != end) {
      break;
    }
    end = begin;
  }
  return text.substr(0, end);
}

std::optional<std::string> ifUTF8(std::string bytes) {
  if (!isUTF8(bytes)) {
    return std::nullopt;
  }
  return bytes;
}

/// How a byte-order mark tells an encoding.
struct Mark {
  std::string_view bytes;
  std::optional<std::string> (*decode)(std::string_view bytes, ByteOrder order);
  ByteOrder order;
};

/// The mark of UTF-32 in little-endian order begins with that of UTF-16, so it comes first.
constexpr std::array<Mark, 4> MARKS{{
    {std::string_view("\xFF\xFE\0\0", 4), xctest::fromUTF32, ByteOrder::littleEndian},
    {std::string_view("\0\0\xFE\xFF", 4), xctest::fromUTF32, ByteOrder::bigEndian},
    {"\xFF\xFE", xctest::fromUTF16, ByteOrder::littleEndian},
    {"\xFE\xFF", xctest::fromUTF16, ByteOrder::bigEndian},
}};

std::string textOf(NSString* text) {
  NSData* const bytes = [text dataUsingEncoding:NSUTF8StringEncoding];
  return {static_cast<const char*>([bytes bytes]), [bytes length]};
}

/// The byte behind each user-perceived character. The platform takes a carriage return and the line feed after it for
/// two.
std::vector<std::size_t> characterEnds(std::string_view text) {
  const PlatformText characters(text);
  std::vector<std::size_t> ends;
  NSUInteger position = 0;
  while (position < characters.length()) {
    position = NSMaxRange([characters.string.get() rangeOfComposedCharacterSequenceAtIndex:position]);
    const std::size_t end = characters.offsets[position];
    if (end == text.size() || text[end - 1] != '\r' || text[end] != '\n') {
      ends.push_back(end);
    }
  }
  return ends;
}

/// Folds one character that is not ASCII.
void appendFolded(std::string_view character, FoldedText& result) {
  @autoreleasepool {
    NSString* const folding = [PlatformText(character).string.get() stringByFoldingWithOptions:NSCaseInsensitiveSearch
                                                                                        locale:nil];
    const std::string folded = textOf(folding);
    for (std::size_t position = 1; position < folded.size(); ++position) {
      if (!isTrail(folded[position])) {
        result.insideOneCharacter.push_back(static_cast<std::uint32_t>(result.text.size() + position));
      }
    }
    result.text += folded;
  }
}

bool isBetweenCharacters(const FoldedText& text, std::size_t position) {
  return !std::binary_search(text.insideOneCharacter.begin(), text.insideOneCharacter.end(), position);
}

}  // namespace

bool isUTF8(std::string_view bytes) {
  for (std::size_t position = 0; position < bytes.size();) {
    if (!nextCharacter(bytes, position)) {
      return false;
    }
  }
  return true;
}

std::string repairedUTF8(std::string_view bytes) {
  std::string repaired;
  repaired.reserve(bytes.size());
  for (std::size_t position = 0; position < bytes.size();) {
    const std::size_t begin = position;
    const bool isWellFormed = nextCharacter(bytes, position).has_value();
    repaired += isWellFormed ? bytes.substr(begin, position - begin) : REPLACEMENT_CHARACTER;
  }
  return repaired;
}

std::optional<std::string> decodedText(std::string bytes) {
  constexpr std::string_view UTF8_MARK = "\xEF\xBB\xBF";
  if (bytes.starts_with(UTF8_MARK)) {
    return ifUTF8(std::move(bytes.erase(0, UTF8_MARK.size())));
  }
  for (const Mark& mark : MARKS) {
    if (bytes.starts_with(mark.bytes)) {
      return mark.decode(std::string_view(bytes).substr(mark.bytes.size()), mark.order);
    }
  }
  return ifUTF8(std::move(bytes));
}

std::string_view trimmedBlanks(std::string_view text) {
  return withoutTrailingBlanks(withoutLeadingBlanks(text));
}

std::size_t newlineLength(std::string_view text) {
  if (text.empty()) {
    return 0;
  }
  if (isASCII(text.front())) {
    return text.front() >= '\n' && text.front() <= '\r' ? 1 : 0;
  }
  for (const std::string_view newline : {"\xC2\x85", "\xE2\x80\xA8", "\xE2\x80\xA9"}) {
    if (text.starts_with(newline)) {
      return newline.size();
    }
  }
  return 0;
}

std::size_t characterCount(std::string_view text) {
  return characterEnds(text).size();
}

std::vector<std::string_view> characters(std::string_view text) {
  std::vector<std::string_view> found;
  std::size_t begin = 0;
  for (const std::size_t end : characterEnds(text)) {
    found.push_back(text.substr(begin, end - begin));
    begin = end;
  }
  return found;
}

FoldedText caseFolded(std::string_view text) {
  FoldedText result;
  result.text.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const char first = text[position];
    if (isASCII(first)) {
      result.text += first >= 'A' && first <= 'Z' ? static_cast<char>(first - 'A' + 'a') : first;
      ++position;
      continue;
    }
    const std::size_t begin = position;
    if (nextCharacter(text, position)) {
      appendFolded(text.substr(begin, position - begin), result);
    } else {
      result.text += REPLACEMENT_CHARACTER;
    }
  }
  return result;
}

bool contains(const FoldedText& text, const FoldedText& needle) {
  if (needle.text.empty()) {
    return false;
  }
  for (auto begin = text.text.find(needle.text); begin != text.text.npos;
       begin = text.text.find(needle.text, begin + 1)) {
    if (isBetweenCharacters(text, begin) && isBetweenCharacters(text, begin + needle.text.size())) {
      return true;
    }
  }
  return false;
}

}  // namespace quobrak
