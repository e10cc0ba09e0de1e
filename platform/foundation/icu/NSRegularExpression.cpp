#include "platform/foundation/NSRegularExpression.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <cstdint>
#include <utility>

namespace quobrak {

namespace {

/// In ICU's steps, of ten thousand operations each. Measured: (a+)+$, which would backtrack for ever on forty a's and a
/// b, is given up after 0.4 s, and other such patterns within 0.7 s; .* runs over ten million characters in 0.04 s.
constexpr std::int32_t TIME_LIMIT = 2000;

/// In bytes: ICU's own default.
constexpr std::int32_t STACK_LIMIT = 8'000'000;

std::string named(std::string_view pattern) {
  return "the regular expression \"" + std::string(pattern) + "\"";
}

std::string compilationFault(UErrorCode status) {
  switch (status) {
    case U_REGEX_RULE_SYNTAX:
      return "there is a syntax error";
    case U_REGEX_BAD_ESCAPE_SEQUENCE:
      return "the escape after the backslash is unknown";
    case U_REGEX_PROPERTY_SYNTAX:
      return "the Unicode property is unknown";
    case U_REGEX_UNIMPLEMENTED:
      return "this feature does not exist";
    case U_REGEX_MISMATCHED_PAREN:
      return "a parenthesis has no partner";
    case U_REGEX_NUMBER_TOO_BIG:
      return "the number is too big";
    case U_REGEX_BAD_INTERVAL:
      return "the {min,max} interval is malformed";
    case U_REGEX_MAX_LT_MIN:
      return "the maximum of the {min,max} interval is less than its minimum";
    case U_REGEX_INVALID_BACK_REF:
      return "the back reference is to a group that does not exist";
    case U_REGEX_INVALID_FLAG:
      return "the flag is unknown";
    case U_REGEX_LOOK_BEHIND_LIMIT:
      return "what the look-behind matches has no greatest length";
    case U_REGEX_MISSING_CLOSE_BRACKET:
      return "a bracket expression has no closing bracket";
    case U_REGEX_INVALID_RANGE:
      return "the range of characters begins after its end";
    case U_REGEX_PATTERN_TOO_BIG:
      return "the pattern is too big";
    case U_REGEX_INVALID_CAPTURE_GROUP_NAME:
      return "the name of the group is malformed";
    case U_ILLEGAL_CHAR_FOUND:
      return "the name of the character is unknown";
    default:
      return u_errorName(status);
  }
}

std::string searchFault(UErrorCode status) {
  switch (status) {
    case U_REGEX_TIME_OUT:
      return "it takes too long on this text";
    case U_REGEX_STACK_OVERFLOW:
      return "it backtracks too deeply on this text";
    default:
      return u_errorName(status);
  }
}

/// Where the line that begins there ends, with its newline, as ICU divides a pattern into lines.
std::int32_t endOfLine(const icu::UnicodeString& pattern, std::int32_t position) {
  constexpr std::u16string_view NEWLINES = u"\n\r\u0085\u2028";
  while (position < pattern.length()) {
    const char16_t unit = pattern[position++];
    if (NEWLINES.find(unit) != NEWLINES.npos) {
      const bool isPair = unit == u'\r' && position < pattern.length() && pattern[position] == u'\n';
      return isPair ? position + 1 : position;
    }
  }
  return position;
}

/// The number of the character (from 1) at which ICU noticed the fault: ICU counts lines, and characters within a line.
std::int32_t faultyCharacter(const icu::UnicodeString& pattern, const UParseError& place) {
  std::int32_t lineBegin = 0;
  for (std::int32_t line = 1; line < place.line; ++line) {
    lineBegin = endOfLine(pattern, lineBegin);
  }
  return pattern.countChar32(0, lineBegin) + place.offset;
}

std::string inWords(const icu::UnicodeString& pattern, const UParseError& place) {
  // For an unknown name of a character ICU tells no place.
  return place.offset > 0 ? ", at character " + std::to_string(faultyCharacter(pattern, place)) : "";
}

/// How many bytes the whole characters take that fit into that many UTF-16 units.
std::size_t bytesInUTF16Units(std::string_view text, std::size_t units) {
  for (std::size_t position = 0; position < text.size(); ++position) {
    if (U8_IS_TRAIL(text[position])) {
      continue;
    }
    // The characters beyond U+FFFF are those of four bytes, and of two units.
    const std::size_t length = static_cast<unsigned char>(text[position]) >= 0xF0 ? 2 : 1;
    if (length > units) {
      return position;
    }
    units -= length;
  }
  return text.size();
}

std::unique_ptr<const icu::RegexPattern> compiled(std::string_view pattern) {
  const auto text = icu::UnicodeString::fromUTF8({pattern.data(), static_cast<std::int32_t>(pattern.size())});
  UErrorCode status = U_ZERO_ERROR;
  UParseError place{};
  std::unique_ptr<const icu::RegexPattern> result(icu::RegexPattern::compile(text, place, status));
  if (U_FAILURE(status)) {
    throw RegularExpressionError(named(pattern) + " cannot be read: " + compilationFault(status) +
                                 inWords(text, place));
  }
  return result;
}

}  // namespace

struct NSRegularExpression::Compiled {
  explicit Compiled(std::string_view patternText) : text(patternText), pattern(compiled(patternText)) {
    UErrorCode status = U_ZERO_ERROR;
    matcher.reset(pattern->matcher(status));
    requireSuccess(status);
    setLimits(TIME_LIMIT, STACK_LIMIT, status);
    requireSuccess(status);
  }

  /// The matcher on a new input, which must live until the search is over. Nothing limits it.
  icu::RegexMatcher& matcherOn(std::string_view input) const {
    UErrorCode status = U_ZERO_ERROR;
    setLimits(0, 0, status);
    const icu::LocalUTextPointer bytes(
        utext_openUTF8(nullptr, input.data(), static_cast<std::int64_t>(input.size()), &status));
    requireSuccess(status);
    matcher->reset(bytes.getAlias());
    return *matcher;
  }

  /// The matcher on a new input, of which it makes a copy that it reads faster. It has its limits.
  icu::RegexMatcher& matcherOnCopyOf(std::string_view input) {
    UErrorCode status = U_ZERO_ERROR;
    setLimits(TIME_LIMIT, STACK_LIMIT, status);
    requireSuccess(status);
    copy = icu::UnicodeString::fromUTF8({input.data(), static_cast<std::int32_t>(input.size())});
    matcher->reset(copy);
    return *matcher;
  }

  void setLimits(std::int32_t timeLimit, std::int32_t stackLimit, UErrorCode& status) const {
    // Setting them makes the matcher's stack anew.
    if (matcher->getTimeLimit() != timeLimit) {
      matcher->setTimeLimit(timeLimit, status);
      matcher->setStackLimit(stackLimit, status);
    }
  }

  void requireSuccess(UErrorCode status) const {
    if (U_FAILURE(status)) {
      throw RegularExpressionError(named(text) + " was given up: " + searchFault(status));
    }
  }

  std::string text;
  std::unique_ptr<const icu::RegexPattern> pattern;
  std::unique_ptr<icu::RegexMatcher> matcher;
  icu::UnicodeString copy;
};

NSRegularExpression::NSRegularExpression(std::string_view pattern) : compiled_(std::make_unique<Compiled>(pattern)) {}

NSRegularExpression::~NSRegularExpression() = default;
NSRegularExpression::NSRegularExpression(NSRegularExpression&&) noexcept = default;
NSRegularExpression& NSRegularExpression::operator=(NSRegularExpression&&) noexcept = default;

std::optional<std::string_view> NSRegularExpression::firstMatch(std::string_view text,
                                                                std::size_t searchedUTF16Units) const {
  const std::string_view searched = text.substr(0, bytesInUTF16Units(text, searchedUTF16Units));
  icu::RegexMatcher& matcher = compiled_->matcherOn(searched);
  UErrorCode status = U_ZERO_ERROR;
  const bool isFound = matcher.find(status);
  compiled_->requireSuccess(status);
  if (!isFound) {
    return std::nullopt;
  }
  const auto begin = static_cast<std::size_t>(matcher.start64(status));
  const auto end = static_cast<std::size_t>(matcher.end64(status));
  compiled_->requireSuccess(status);
  return searched.substr(begin, end - begin);
}

bool NSRegularExpression::matchesWhole(std::string_view text) const {
  UErrorCode status = U_ZERO_ERROR;
  const bool isMatch = compiled_->matcherOnCopyOf(text).matches(status);
  compiled_->requireSuccess(status);
  return isMatch;
}

}  // namespace quobrak
