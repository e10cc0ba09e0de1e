#include "platform/foundation/NSPredicate.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

#include "platform/foundation/PredicateTokens.h"

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

bool areIdentifiers(std::string_view word) {
  for (auto dot = word.find('.'); dot != word.npos; dot = word.find('.')) {
    if (!isIdentifier(word.substr(0, dot))) {
      return false;
    }
    word.remove_prefix(dot + 1);
  }
  return isIdentifier(word);
}

std::optional<bool> truthValue(std::string_view uppercasedWord) {
  if (uppercasedWord == "TRUE" || uppercasedWord == "YES" || uppercasedWord == "1") {
    return true;
  }
  if (uppercasedWord == "FALSE" || uppercasedWord == "NO" || uppercasedWord == "0") {
    return false;
  }
  return std::nullopt;
}

bool isReserved(std::string_view uppercasedWord) {
  constexpr std::array<std::string_view, 11> WORDS = {"AND",      "OR",   "NOT",     "CONTAINS",      "BEGINSWITH",
                                                      "ENDSWITH", "LIKE", "MATCHES", "TRUEPREDICATE", "FALSEPREDICATE",
                                                      "IN"};
  return std::find(WORDS.begin(), WORDS.end(), uppercasedWord) != WORDS.end();
}

/// Any text, line breaks included. The sign that lets `.` stand for those too comes before the whole pattern.
constexpr std::string_view ANY_TEXT = ".*";
constexpr std::string_view ANY_CHARACTER = ".";
constexpr std::string_view WITH_LINE_BREAKS = "(?s)";

/// The regular expression that matches the character and no other.
std::string escapedForPattern(char character) {
  constexpr std::string_view SPECIAL_CHARACTERS = R"(\^$.|?*+()[]{}#-&)";
  return (SPECIAL_CHARACTERS.find(character) == SPECIAL_CHARACTERS.npos ? "" : "\\") + std::string(1, character);
}

std::string patternOf(std::string_view text) {
  std::string pattern;
  for (const char character : text) {
    pattern += escapedForPattern(character);
  }
  return pattern;
}

/// The regular expression for a text with wildcards, in which a backslash takes the next character as it is.
std::string patternOfWildcards(std::string_view text) {
  std::string pattern(WITH_LINE_BREAKS);
  while (!text.empty()) {
    const bool isEscaped = text.front() == '\\' && text.size() > 1;
    text.remove_prefix(isEscaped ? 1 : 0);
    if (!isEscaped && text.front() == '*') {
      pattern += ANY_TEXT;
    } else if (!isEscaped && text.front() == '?') {
      pattern += ANY_CHARACTER;
    } else {
      pattern += escapedForPattern(text.front());
    }
    text.remove_prefix(1);
  }
  return pattern;
}

std::string patternOfBeginning(std::string_view text) {
  return std::string(WITH_LINE_BREAKS).append(patternOf(text)).append(ANY_TEXT);
}

std::string patternOfEnding(std::string_view text) {
  return std::string(WITH_LINE_BREAKS).append(ANY_TEXT).append(patternOf(text));
}

}  // namespace

/// Recursive descent, one function for each level of precedence.
class PredicateParser {
 public:
  PredicateParser(std::string_view format, std::span<const NSPredicate::Argument> arguments)
      : format_(format), arguments_(arguments), token_(predicateTokenAt(format_, 0)) {}

  NSPredicate parse() {
    NSPredicate predicate = disjunction();
    if (token_.kind != PredicateToken::Kind::end) {
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
    if (acceptSymbol("!=")) {
      return compound(NSPredicate::Junction::negation, {compared(std::move(left), NSPredicate::Operator::equalTo)});
    }
    if (acceptWord("IN")) {
      return membership(std::move(left));
    }
    if (acceptWord("BEGINSWITH")) {
      return matched(std::move(left), patternOfBeginning);
    }
    if (acceptWord("ENDSWITH")) {
      return matched(std::move(left), patternOfEnding);
    }
    if (acceptWord("LIKE")) {
      return matched(std::move(left), patternOfWildcards);
    }
    return compared(std::move(left), comparisonOperator());
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
    fail("an operator (==, !=, CONTAINS, BEGINSWITH, ENDSWITH, LIKE, MATCHES or IN)");
  }

  /// Behind the operator.
  NSPredicate compared(NSPredicate::Operand left, NSPredicate::Operator op) {
    const bool ignoresCase = option();
    NSPredicate::Operand right = operand(AN_OPERAND);
    return NSPredicate(NSPredicate::Comparison{std::move(left), op, ignoresCase, std::move(right)});
  }

  /// Behind an operator for which there is a pattern.
  NSPredicate matched(NSPredicate::Operand left, std::string (*pattern)(std::string_view text)) {
    const bool ignoresCase = option();
    const std::size_t position = token_.position;
    const std::string found = token_.found();
    const NSPredicate::Operand right = operand("a text or %@");
    const auto* const text = std::get_if<std::string>(&right);
    if (text == nullptr) {
      format_.fail(position, "a text or %@", found);
    }
    return NSPredicate(
        NSPredicate::Comparison{std::move(left), NSPredicate::Operator::matches, ignoresCase, pattern(*text)});
  }

  /// Behind IN.
  NSPredicate membership(NSPredicate::Operand left) {
    const bool ignoresCase = option();
    if (!acceptSymbol("{")) {
      return NSPredicate(NSPredicate::Comparison{operand("{, or " + std::string(AN_OPERAND)),
                                                 NSPredicate::Operator::contains, ignoresCase, std::move(left)});
    }
    std::vector<NSPredicate> parts;
    while (!acceptSymbol("}")) {
      if (!parts.empty() && !acceptSymbol(",")) {
        fail(", or }");
      }
      parts.push_back(
          NSPredicate(NSPredicate::Comparison{left, NSPredicate::Operator::equalTo, ignoresCase, operand(AN_OPERAND)}));
    }
    return joined(NSPredicate::Junction::disjunction, std::move(parts));
  }

  bool option() {
    if (token_.kind != PredicateToken::Kind::symbol || token_.source.front() != '[') {
      return false;
    }
    if (!acceptSymbol("[c]") && !acceptSymbol("[C]")) {
      fail("[c]");
    }
    return true;
  }

  NSPredicate::Operand operand(std::string_view expected) {
    if (token_.kind == PredicateToken::Kind::text) {
      return take().text;
    }
    if (acceptSymbol("%@")) {
      return argument();
    }
    const std::string word = token_.kind == PredicateToken::Kind::word ? uppercased(token_.source) : "";
    if (const std::optional<bool> truth = truthValue(word)) {
      take();
      return *truth;
    }
    if (!NSPredicate::isKeyPath(token_.source)) {
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
    return acceptIf(token_.kind == PredicateToken::Kind::word && uppercased(token_.source) == uppercaseWord);
  }

  bool acceptSymbol(std::string_view symbol) {
    return acceptIf(token_.kind == PredicateToken::Kind::symbol && token_.source == symbol);
  }

  bool acceptIf(bool isExpected) {
    if (isExpected) {
      take();
    }
    return isExpected;
  }

  PredicateToken take() {
    endOfTaken_ = token_.position + token_.source.size();
    return std::exchange(token_, predicateTokenAt(format_, endOfTaken_));
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

  static constexpr std::string_view AN_OPERAND = "a key path, a text, TRUE, FALSE or %@";

  PredicateFormat format_;
  std::span<const NSPredicate::Argument> arguments_;
  std::size_t usedArguments_ = 0;
  std::size_t nesting_ = 0;
  PredicateToken token_;
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

bool NSPredicate::isKeyPath(std::string_view text) {
  const std::string word = uppercased(text);
  return !isReserved(word) && !truthValue(word) && areIdentifiers(text);
}

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
