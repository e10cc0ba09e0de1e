#include "platform/foundation/PredicateTokens.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/foundation/NSPredicate.h"
#include "platform/foundation/Unicode.h"

namespace quobrak {

namespace {

bool isLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

bool isHexadecimalDigit(char character) {
  return isDigit(character) || (character >= 'a' && character <= 'f') || (character >= 'A' && character <= 'F');
}

/// Characters beyond ASCII are taken for letters, so that a fault names the whole word.
bool isWordCharacter(char character) {
  return isLetter(character) || isDigit(character) || character == '_' || character == '.' ||
         static_cast<unsigned char>(character) >= 0x80;
}

bool isBlank(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

std::string quoted(std::string_view source) {
  std::string result = "\"";
  return result.append(source).append("\"");
}

/// Reads one text literal. \uXXXX is a UTF-16 unit, so that two of them can stand for one character.
class TextLiteral {
 public:
  /// At the opening quote.
  TextLiteral(const PredicateFormat& format, std::size_t position)
      : format_(format), begin_(position), position_(position + 1) {}

  std::string read() {
    const char quote = at(begin_);
    std::string result;
    while (at(position_) != quote) {
      if (position_ >= format_.text().size()) {
        failUnclosed(quote);
      }
      if (at(position_) == '\\') {
        result += escape();
      } else {
        result += at(position_++);
      }
    }
    ++position_;
    return result;
  }

  std::size_t end() const { return position_; }

 private:
  char at(std::size_t position) const { return position < format_.text().size() ? format_.text()[position] : '\0'; }

  [[noreturn]] void failUnclosed(char quote) const {
    format_.fail(position_,
                 std::string(1, quote) + " to close the text from column " + std::to_string(format_.column(begin_)),
                 "the end");
  }

  std::string escape() {
    const char name = at(position_ + 1);
    if (name == 'u') {
      return unicodeEscapes();
    }
    constexpr std::string_view NAMES = "\"'\\nrt";
    constexpr std::string_view MEANINGS = "\"'\\\n\r\t";
    const auto index = NAMES.find(name);
    if (index == NAMES.npos) {
      format_.fail(position_, R"(one of the escapes \" \' \\ \n \r \t \uXXXX)", found(2));
    }
    position_ += 2;
    return std::string(1, MEANINGS[index]);
  }

  /// The escapes \uXXXX that follow one another, decoded together for the sake of the pairs among them.
  std::string unicodeEscapes() {
    const std::size_t begin = position_;
    std::string bytes = "\xFE\xFF";
    while (at(position_) == '\\' && at(position_ + 1) == 'u') {
      const std::uint32_t unit = hexadecimalUnit();
      bytes += static_cast<char>(unit >> 8U);
      bytes += static_cast<char>(unit & 0xFFU);
    }
    const std::optional<std::string> text = decodedText(std::move(bytes));
    if (!text) {
      const std::string escapes(format_.text().substr(begin, position_ - begin));
      format_.fail(begin, "whole characters", "half a surrogate pair in " + quoted(escapes));
    }
    return *text;
  }

  std::uint32_t hexadecimalUnit() {
    constexpr std::size_t DIGITS = 4;
    constexpr std::size_t PREFIX = 2;
    const std::string digits(format_.text().substr(position_ + PREFIX, DIGITS));
    if (digits.size() < DIGITS || !std::all_of(digits.begin(), digits.end(), isHexadecimalDigit)) {
      format_.fail(position_, "four hexadecimal digits after \\u", found(PREFIX + DIGITS));
    }
    position_ += PREFIX + DIGITS;
    return static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
  }

  /// Cut at the end of the format, never inside a character.
  std::string found(std::size_t bytes) const {
    std::size_t end = std::min(position_ + bytes, format_.text().size());
    while (end < format_.text().size() && (static_cast<unsigned char>(at(end)) & 0xC0U) == 0x80U) {
      ++end;
    }
    return quoted(format_.text().substr(position_, end - position_));
  }

  const PredicateFormat& format_;
  std::size_t begin_;
  std::size_t position_;
};

PredicateToken wordToken(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  while (end < text.size() && isWordCharacter(text[end])) {
    ++end;
  }
  return {PredicateToken::Kind::word, begin, text.substr(begin, end - begin), {}};
}

PredicateToken textToken(const PredicateFormat& format, std::size_t begin) {
  TextLiteral literal(format, begin);
  std::string text = literal.read();
  return {PredicateToken::Kind::text, begin, format.text().substr(begin, literal.end() - begin), std::move(text)};
}

/// An operator's sign, an option in brackets, or whatever other single character stands there.
PredicateToken symbolToken(std::string_view text, std::size_t begin) {
  constexpr std::array<std::string_view, 5> PAIRS = {"==", "!=", "&&", "||", "%@"};
  const std::string_view rest = text.substr(begin);
  std::size_t length = 1;
  if (std::find(PAIRS.begin(), PAIRS.end(), rest.substr(0, 2)) != PAIRS.end()) {
    length = 2;
  } else if (rest.front() == '[' && rest.find(']') != rest.npos) {
    length = rest.find(']') + 1;
  }
  return {PredicateToken::Kind::symbol, begin, rest.substr(0, length), {}};
}

}  // namespace

std::size_t PredicateFormat::column(std::size_t position) const {
  return characterCount(text_.substr(0, position)) + 1;
}

void PredicateFormat::fail(std::size_t position, std::string_view expected, std::string_view found) const {
  std::string message = "column " + std::to_string(column(position)) + ": expected ";
  message.append(expected).append(", found ").append(found).append(" in the predicate format: ").append(text_);
  throw PredicateFormatError(message);
}

std::string PredicateToken::found() const {
  switch (kind) {
    case Kind::end:
      return "the end";
    case Kind::text:
      return std::string(source);
    case Kind::word:
    case Kind::symbol:
      return quoted(source);
  }
  return {};
}

PredicateToken predicateTokenAt(const PredicateFormat& format, std::size_t position) {
  const std::string_view text = format.text();
  while (position < text.size() && isBlank(text[position])) {
    ++position;
  }
  if (position == text.size()) {
    return {PredicateToken::Kind::end, position, {}, {}};
  }
  if (isWordCharacter(text[position])) {
    return wordToken(text, position);
  }
  if (text[position] == '"' || text[position] == '\'') {
    return textToken(format, position);
  }
  return symbolToken(text, position);
}

}  // namespace quobrak
