#include "platform/foundation/NSPredicate.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/foundation/Unicode.h"

namespace quobrak {

namespace {

/// Deeper formats are nobody's work, and would exhaust the stack in the end.
constexpr std::size_t DEEPEST_NESTING = 200;

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

std::string uppercased(std::string_view word) {
  std::string result(word);
  for (char& character : result) {
    if (character >= 'a' && character <= 'z') {
      character = static_cast<char>(character - 'a' + 'A');
    }
  }
  return result;
}

bool isIdentifier(std::string_view word) {
  return !word.empty() && !isDigit(word.front()) && std::all_of(word.begin(), word.end(), [](char character) {
    return isLetter(character) || isDigit(character) || character == '_';
  });
}

bool isKeyPath(std::string_view word) {
  for (auto dot = word.find('.'); dot != word.npos; dot = word.find('.')) {
    if (!isIdentifier(word.substr(0, dot))) {
      return false;
    }
    word.remove_prefix(dot + 1);
  }
  return isIdentifier(word);
}

std::optional<bool> truthValue(std::string_view uppercasedWord) {
  if (uppercasedWord == "TRUE" || uppercasedWord == "YES") {
    return true;
  }
  if (uppercasedWord == "FALSE" || uppercasedWord == "NO") {
    return false;
  }
  return std::nullopt;
}

bool isReserved(std::string_view uppercasedWord) {
  constexpr std::array<std::string_view, 7> WORDS = {
      "AND", "OR", "NOT", "CONTAINS", "MATCHES", "TRUEPREDICATE", "FALSEPREDICATE"};
  return std::find(WORDS.begin(), WORDS.end(), uppercasedWord) != WORDS.end();
}

/// A format and the words for what is wrong with it.
class Format {
 public:
  explicit Format(std::string_view text) : text_(text) {}

  std::string_view text() const { return text_; }

  std::size_t column(std::size_t position) const { return characterCount(text_.substr(0, position)) + 1; }

  [[noreturn]] void fail(std::size_t position, std::string_view expected, std::string_view found) const {
    std::string message = "column " + std::to_string(column(position)) + ": expected ";
    message.append(expected).append(", found ").append(found).append(" in the predicate format: ").append(text_);
    throw PredicateFormatError(message);
  }

 private:
  std::string_view text_;
};

std::string quoted(std::string_view source) {
  std::string result = "\"";
  return result.append(source).append("\"");
}

struct Token {
  enum class Kind { end, word, text, symbol };

  Kind kind;
  std::size_t position;
  std::string_view source;
  /// What a text literal stands for.
  std::string text;

  std::string found() const {
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
};

/// Reads one text literal. \uXXXX is a UTF-16 unit, so that two of them can stand for one character.
class TextLiteral {
 public:
  /// At the opening quote.
  TextLiteral(const Format& format, std::size_t position)
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

  const Format& format_;
  std::size_t begin_;
  std::size_t position_;
};

Token wordToken(std::string_view text, std::size_t begin) {
  std::size_t end = begin;
  while (end < text.size() && isWordCharacter(text[end])) {
    ++end;
  }
  return {Token::Kind::word, begin, text.substr(begin, end - begin), {}};
}

Token textToken(const Format& format, std::size_t begin) {
  TextLiteral literal(format, begin);
  std::string text = literal.read();
  return {Token::Kind::text, begin, format.text().substr(begin, literal.end() - begin), std::move(text)};
}

/// An operator's sign, an option in brackets, or whatever other single character stands there.
Token symbolToken(std::string_view text, std::size_t begin) {
  constexpr std::array<std::string_view, 5> PAIRS = {"==", "!=", "&&", "||", "%@"};
  const std::string_view rest = text.substr(begin);
  std::size_t length = 1;
  if (std::find(PAIRS.begin(), PAIRS.end(), rest.substr(0, 2)) != PAIRS.end()) {
    length = 2;
  } else if (rest.front() == '[' && rest.find(']') != rest.npos) {
    length = rest.find(']') + 1;
  }
  return {Token::Kind::symbol, begin, rest.substr(0, length), {}};
}

Token tokenAt(const Format& format, std::size_t position) {
  const std::string_view text = format.text();
  while (position < text.size() && isBlank(text[position])) {
    ++position;
  }
  if (position == text.size()) {
    return {Token::Kind::end, position, {}, {}};
  }
  if (isWordCharacter(text[position])) {
    return wordToken(text, position);
  }
  if (text[position] == '"' || text[position] == '\'') {
    return textToken(format, position);
  }
  return symbolToken(text, position);
}

}  // namespace

/// Recursive descent, one function for each level of precedence.
class PredicateParser {
 public:
  PredicateParser(std::string_view format, std::span<const NSPredicate::Argument> arguments)
      : format_(format), arguments_(arguments), token_(tokenAt(format_, 0)) {}

  NSPredicate parse() {
    NSPredicate predicate = disjunction();
    if (token_.kind != Token::Kind::end) {
      fail("AND, OR or the end");
    }
    if (usedArguments_ < arguments_.size()) {
      format_.fail(token_.position, "as many %@ as arguments (" + std::to_string(arguments_.size()) + ")",
                   std::to_string(usedArguments_));
    }
    return predicate;
  }

 private:
  NSPredicate disjunction() {
    std::vector<NSPredicate> parts = {conjunction()};
    while (acceptWord("OR") || acceptSymbol("||")) {
      parts.push_back(conjunction());
    }
    return joined(NSPredicate::Junction::disjunction, std::move(parts));
  }

  NSPredicate conjunction() {
    std::vector<NSPredicate> parts = {negation()};
    while (acceptWord("AND") || acceptSymbol("&&")) {
      parts.push_back(negation());
    }
    return joined(NSPredicate::Junction::conjunction, std::move(parts));
  }

  NSPredicate negation() {
    const std::size_t position = token_.position;
    if (!acceptWord("NOT") && !acceptSymbol("!")) {
      return primary();
    }
    enter(position);
    NSPredicate part = negation();
    --nesting_;
    return compound(NSPredicate::Junction::negation, {std::move(part)});
  }

  NSPredicate primary() {
    const std::size_t position = token_.position;
    if (acceptWord("TRUEPREDICATE")) {
      return compound(NSPredicate::Junction::conjunction, {});
    }
    if (acceptWord("FALSEPREDICATE")) {
      return compound(NSPredicate::Junction::disjunction, {});
    }
    if (!acceptSymbol("(")) {
      return comparison();
    }
    enter(position);
    NSPredicate inner = disjunction();
    --nesting_;
    if (!acceptSymbol(")")) {
      fail("AND, OR or )");
    }
    return inner;
  }

  NSPredicate comparison() {
    NSPredicate::Operand left = operand("a comparison, NOT or (");
    const NSPredicate::Operator op = comparisonOperator();
    const bool ignoresCase = option();
    NSPredicate::Operand right = operand("a key path, a text, TRUE, FALSE or %@");
    return NSPredicate(NSPredicate::Comparison{std::move(left), op, ignoresCase, std::move(right)});
  }

  NSPredicate::Operator comparisonOperator() {
    if (acceptSymbol("==") || acceptSymbol("=")) {
      return NSPredicate::Operator::equalTo;
    }
    if (acceptWord("CONTAINS")) {
      return NSPredicate::Operator::contains;
    }
    if (acceptWord("MATCHES")) {
      return NSPredicate::Operator::matches;
    }
    fail("an operator (==, CONTAINS or MATCHES)");
  }

  bool option() {
    if (token_.kind != Token::Kind::symbol || token_.source.front() != '[') {
      return false;
    }
    if (!acceptSymbol("[c]") && !acceptSymbol("[C]")) {
      fail("[c]");
    }
    return true;
  }

  NSPredicate::Operand operand(std::string_view expected) {
    if (token_.kind == Token::Kind::text) {
      return take().text;
    }
    if (acceptSymbol("%@")) {
      return argument();
    }
    const std::string word = token_.kind == Token::Kind::word ? uppercased(token_.source) : "";
    if (const std::optional<bool> truth = truthValue(word)) {
      take();
      return *truth;
    }
    if (isReserved(word) || !isKeyPath(token_.source)) {
      fail(expected);
    }
    return NSPredicate::KeyPath{std::string(take().source)};
  }

  /// After its %@.
  NSPredicate::Operand argument() {
    if (usedArguments_ == arguments_.size()) {
      constexpr std::size_t LENGTH = std::string_view("%@").size();
      format_.fail(endOfTaken_ - LENGTH, "an argument for every %@", std::to_string(arguments_.size()));
    }
    return std::visit([](const auto& value) { return NSPredicate::Operand(value); }, arguments_[usedArguments_++]);
  }

  /// Passes over the token if it is that word, in either case.
  bool acceptWord(std::string_view uppercaseWord) {
    return acceptIf(token_.kind == Token::Kind::word && uppercased(token_.source) == uppercaseWord);
  }

  bool acceptSymbol(std::string_view symbol) {
    return acceptIf(token_.kind == Token::Kind::symbol && token_.source == symbol);
  }

  bool acceptIf(bool isExpected) {
    if (isExpected) {
      take();
    }
    return isExpected;
  }

  Token take() {
    endOfTaken_ = token_.position + token_.source.size();
    return std::exchange(token_, tokenAt(format_, endOfTaken_));
  }

  void enter(std::size_t position) {
    if (++nesting_ > DEEPEST_NESTING) {
      format_.fail(position, "no more than " + std::to_string(DEEPEST_NESTING) + " nested parentheses and NOTs",
                   "one more");
    }
  }

  [[noreturn]] void fail(std::string_view expected) const { format_.fail(token_.position, expected, token_.found()); }

  static NSPredicate joined(NSPredicate::Junction junction, std::vector<NSPredicate> parts) {
    return parts.size() == 1 ? std::move(parts.front()) : compound(junction, std::move(parts));
  }

  static NSPredicate compound(NSPredicate::Junction junction, std::vector<NSPredicate> parts) {
    return NSPredicate(NSPredicate::Compound{junction, std::move(parts)});
  }

  Format format_;
  std::span<const NSPredicate::Argument> arguments_;
  std::size_t usedArguments_ = 0;
  std::size_t nesting_ = 0;
  Token token_;
  std::size_t endOfTaken_ = 0;
};

namespace {

std::string escaped(char character) {
  switch (character) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      break;
  }
  constexpr char DELETE = '\x7F';
  if (static_cast<unsigned char>(character) >= 0x20 && character != DELETE) {
    return std::string(1, character);
  }
  constexpr std::string_view DIGITS = "0123456789ABCDEF";
  const auto code = static_cast<unsigned char>(character);
  return std::string("\\u00") + DIGITS[code >> 4U] + DIGITS[code & 0xFU];
}

std::string formatOf(const NSPredicate::KeyPath& keyPath) {
  return keyPath.name;
}

std::string formatOf(const std::string& text) {
  std::string result = "\"";
  for (const char character : text) {
    result += escaped(character);
  }
  return result + '"';
}

std::string formatOf(bool truth) {
  return truth ? "TRUE" : "FALSE";
}

std::string formatOf(NSPredicate::Operator op) {
  switch (op) {
    case NSPredicate::Operator::equalTo:
      return "==";
    case NSPredicate::Operator::contains:
      return "CONTAINS";
    case NSPredicate::Operator::matches:
      return "MATCHES";
  }
  return {};
}

std::string formatOf(const NSPredicate::Operand& operand) {
  return std::visit([](const auto& value) { return formatOf(value); }, operand);
}

std::string formatOf(const NSPredicate::Comparison& comparison) {
  return formatOf(comparison.left) + " " + formatOf(comparison.op) + (comparison.ignoresCase ? "[c] " : " ") +
         formatOf(comparison.right);
}

/// The junction of several parts that the predicate is written as, if it is one; one of a single part is written as
/// that part.
const NSPredicate::Compound* junctionOfSeveral(const NSPredicate& predicate) {
  const auto* compound = std::get_if<NSPredicate::Compound>(&predicate.node());
  while (compound != nullptr && compound->parts.size() == 1 && compound->junction != NSPredicate::Junction::negation) {
    compound = std::get_if<NSPredicate::Compound>(&compound->parts.front().node());
  }
  return compound != nullptr && compound->parts.size() > 1 ? compound : nullptr;
}

/// A part within a negation or within a junction of several parts. A conjunction in a conjunction has parentheses too:
/// without them it would be read as one.
std::string formatOfPart(const NSPredicate& part, NSPredicate::Junction around) {
  const NSPredicate::Compound* inner = junctionOfSeveral(part);
  const bool bindsTighter = inner == nullptr || (inner->junction == NSPredicate::Junction::conjunction &&
                                                 around == NSPredicate::Junction::disjunction);
  const std::string format = part.predicateFormat();
  return bindsTighter ? format : '(' + format + ')';
}

std::string formatOf(const NSPredicate::Compound& compound) {
  const bool isConjunction = compound.junction == NSPredicate::Junction::conjunction;
  if (compound.junction == NSPredicate::Junction::negation) {
    return "NOT " + formatOfPart(compound.parts.front(), compound.junction);
  }
  if (compound.parts.empty()) {
    return isConjunction ? "TRUEPREDICATE" : "FALSEPREDICATE";
  }
  if (compound.parts.size() == 1) {
    return compound.parts.front().predicateFormat();
  }
  std::string result;
  for (const NSPredicate& part : compound.parts) {
    if (!result.empty()) {
      result += isConjunction ? " AND " : " OR ";
    }
    result += formatOfPart(part, compound.junction);
  }
  return result;
}

}  // namespace

NSPredicate::NSPredicate(std::string_view format, std::span<const Argument> arguments)
    : NSPredicate(PredicateParser(format, arguments).parse()) {}

NSPredicate::NSPredicate(std::string_view format, std::initializer_list<Argument> arguments)
    : NSPredicate(format, std::span<const Argument>(arguments.begin(), arguments.size())) {}

std::string NSPredicate::predicateFormat() const {
  return std::visit([](const auto& node) { return formatOf(node); }, *node_);
}

NSPredicate NSCompoundPredicate::andPredicate(std::vector<NSPredicate> subpredicates) {
  return NSPredicate(NSPredicate::Compound{NSPredicate::Junction::conjunction, std::move(subpredicates)});
}

NSPredicate NSCompoundPredicate::orPredicate(std::vector<NSPredicate> subpredicates) {
  return NSPredicate(NSPredicate::Compound{NSPredicate::Junction::disjunction, std::move(subpredicates)});
}

NSPredicate NSCompoundPredicate::notPredicate(NSPredicate subpredicate) {
  return NSPredicate(NSPredicate::Compound{NSPredicate::Junction::negation, {std::move(subpredicate)}});
}

}  // namespace quobrak
