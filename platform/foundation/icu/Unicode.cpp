#include "platform/foundation/Unicode.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <utility>

namespace quobrak {

namespace {

constexpr std::string_view REPLACEMENT_CHARACTER = "\xEF\xBF\xBD";

/// Only an incomplete installation of ICU gets here, one without its data.
void requireSuccess(UErrorCode status) {
  if (U_FAILURE(status)) {
    throw std::runtime_error(std::string("ICU does not work: ") + u_errorName(status));
  }
}

/// Where the ASCII characters that begin at `position` end. Eight at a time: scripts are nearly all ASCII.
std::size_t endOfASCII(std::string_view bytes, std::size_t position) {
  constexpr std::uint64_t TOP_BITS = 0x8080808080808080U;
  std::uint64_t word = 0;
  for (; bytes.size() - position >= sizeof word; position += sizeof word) {
    std::memcpy(&word, bytes.data() + position, sizeof word);
    if ((word & TOP_BITS) != 0) {
      break;
    }
  }
  while (position < bytes.size() && U8_IS_SINGLE(bytes[position])) {
    ++position;
  }
  return position;
}

// ICU's macro narrows without casts.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
/// The character at `position`, negative where the bytes are ill-formed; moves `position` behind it.
UChar32 nextCharacter(std::string_view bytes, std::size_t& position) {
  UChar32 character = 0;
  U8_NEXT(bytes, position, bytes.size(), character);
  return character;
}
#pragma GCC diagnostic pop

bool isBlank(UChar32 character) {
  return character >= 0 && u_isblank(character);
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
    while (begin > 0 && U8_IS_TRAIL(text[begin])) {
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

/// The text in bytes of an encoding that ICU knows by that name; none where they are ill-formed.
std::optional<std::string> converted(const char* encoding, std::string_view bytes) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::LocalUConverterPointer converter(ucnv_open(encoding, &status));
  requireSuccess(status);
  ucnv_setToUCallBack(converter.getAlias(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
  requireSuccess(status);

  std::string text;
  text.reserve(bytes.size());
  const char* position = bytes.data();
  const char* const end = bytes.data() + bytes.size();
  while (position < end) {
    const UChar32 character = ucnv_getNextUChar(converter.getAlias(), &position, end, &status);
    if (U_FAILURE(status)) {
      return std::nullopt;
    }
    icu::UnicodeString(character).toUTF8String(text);
  }
  return text;
}

std::optional<std::string> ifUTF8(std::string bytes) {
  if (!isUTF8(bytes)) {
    return std::nullopt;
  }
  return bytes;
}

std::size_t asciiCharacterCount(std::string_view text) {
  std::size_t count = text.size();
  constexpr std::string_view CR_LF = "\r\n";
  for (auto pair = text.find(CR_LF); pair != text.npos; pair = text.find(CR_LF, pair + CR_LF.size())) {
    --count;
  }
  return count;
}

icu::BreakIterator& characterIterator() {
  static thread_local const std::unique_ptr<icu::BreakIterator> iterator = [] {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::BreakIterator> created(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    requireSuccess(status);
    return created;
  }();
  return *iterator;
}

/// Calls `visit` with the position of the end of each user-perceived character.
template <class Visit>
void forEachCharacterEnd(std::string_view text, Visit visit) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::LocalUTextPointer input(
      utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status));
  requireSuccess(status);
  icu::BreakIterator& iterator = characterIterator();
  iterator.setText(input.getAlias(), status);
  requireSuccess(status);
  for (std::int32_t end = iterator.next(); end != icu::BreakIterator::DONE; end = iterator.next()) {
    visit(static_cast<std::size_t>(end));
  }
}

/// Folds one character that is not ASCII.
void appendFolded(std::string_view character, FoldedText& result) {
  constexpr std::size_t LONGEST_FOLDING = 3 * U8_MAX_LENGTH;
  std::array<char, LONGEST_FOLDING> folding{};
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t length =
      icu::CaseMap::utf8Fold(U_FOLD_CASE_DEFAULT, character.data(), static_cast<std::int32_t>(character.size()),
                             folding.data(), static_cast<std::int32_t>(folding.size()), nullptr, status);
  requireSuccess(status);
  const std::string_view folded(folding.data(), static_cast<std::size_t>(length));
  for (std::size_t position = 1; position < folded.size(); ++position) {
    if (!U8_IS_TRAIL(folded[position])) {
      result.insideOneCharacter.push_back(static_cast<std::uint32_t>(result.text.size() + position));
    }
  }
  result.text += folded;
}

char lowercasedASCII(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

void foldOneByOne(std::string_view text, FoldedText& result) {
  std::size_t position = 0;
  while (position < text.size()) {
    const char first = text[position];
    if (U8_IS_SINGLE(first)) {
      result.text += lowercasedASCII(first);
      ++position;
      continue;
    }
    const std::size_t begin = position;
    nextCharacter(text, position);
    appendFolded(text.substr(begin, position - begin), result);
  }
}

std::string foldedAtOnce(std::string_view text) {
  std::string folded;
  icu::StringByteSink<std::string> sink(&folded, static_cast<std::int32_t>(text.size()));
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8Fold(U_FOLD_CASE_DEFAULT, {text.data(), static_cast<std::int32_t>(text.size())}, sink, nullptr,
                         status);
  requireSuccess(status);
  return folded;
}

/// The number of characters; ill-formed bytes, which folding leaves as they are, count for as much before as after it.
std::size_t codePointCount(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char byte) { return !U8_IS_TRAIL(byte); }));
}

bool isBetweenCharacters(const FoldedText& text, std::size_t position) {
  return !std::binary_search(text.insideOneCharacter.begin(), text.insideOneCharacter.end(), position);
}

}  // namespace

bool isUTF8(std::string_view bytes) {
  std::size_t position = endOfASCII(bytes, 0);
  while (position < bytes.size()) {
    if (nextCharacter(bytes, position) < 0) {
      return false;
    }
    if (position < bytes.size() && U8_IS_SINGLE(bytes[position])) {
      position = endOfASCII(bytes, position);
    }
  }
  return true;
}

std::string repairedUTF8(std::string_view bytes) {
  std::string repaired;
  repaired.reserve(bytes.size());
  std::size_t position = 0;
  while (position < bytes.size()) {
    const std::size_t begin = position;
    const bool isWellFormed = nextCharacter(bytes, position) >= 0;
    repaired += isWellFormed ? bytes.substr(begin, position - begin) : REPLACEMENT_CHARACTER;
  }
  return repaired;
}

std::optional<std::string> decodedText(std::string bytes) {
  constexpr std::size_t LONGEST_SIGNATURE = 5;
  std::int32_t signatureLength = 0;
  UErrorCode status = U_ZERO_ERROR;
  const char* const detected = ucnv_detectUnicodeSignature(
      bytes.data(), static_cast<std::int32_t>(std::min(bytes.size(), LONGEST_SIGNATURE)), &signatureLength, &status);
  requireSuccess(status);

  const std::string_view encoding = detected == nullptr ? "" : detected;
  const auto markLength = static_cast<std::size_t>(signatureLength);
  if (encoding == "UTF-8") {
    return ifUTF8(std::move(bytes.erase(0, markLength)));
  }
  // ICU also finds the marks of encodings that nobody saves scripts in, such as UTF-7; those bytes are text.
  if (encoding.starts_with("UTF-16") || encoding.starts_with("UTF-32")) {
    return converted(detected, std::string_view(bytes).substr(markLength));
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
  if (U8_IS_SINGLE(text.front())) {
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
  if (endOfASCII(text, 0) == text.size()) {
    return asciiCharacterCount(text);
  }
  std::size_t count = 0;
  forEachCharacterEnd(text, [&count](std::size_t) { ++count; });
  return count;
}

std::vector<std::string_view> characters(std::string_view text) {
  std::vector<std::string_view> found;
  forEachCharacterEnd(text, [&found, text, begin = std::size_t{0}](std::size_t end) mutable {
    found.push_back(text.substr(begin, end - begin));
    begin = end;
  });
  return found;
}

FoldedText caseFolded(std::string_view text) {
  FoldedText result;
  if (endOfASCII(text, 0) == text.size()) {
    result.text.resize(text.size());
    std::transform(text.begin(), text.end(), result.text.begin(), lowercasedASCII);
    return result;
  }
  result.text = foldedAtOnce(text);
  // More characters than before: one of them folded to several.
  if (codePointCount(result.text) != codePointCount(text)) {
    result.text.clear();
    foldOneByOne(text, result);
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
