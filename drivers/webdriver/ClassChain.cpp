#include "drivers/webdriver/ClassChain.h"

#include <variant>

#include "drivers/webdriver/WirePredicate.h"

namespace quobrak::webdriver {

namespace {

/// A predicate between backticks, of which those inside are doubled.
std::string quoted(const NSPredicate& predicate) {
  std::string text = "[`";
  for (const char character : predicate.predicateFormat()) {
    text += character;
    if (character == '`') {
      text += character;
    }
  }
  return text + "`]";
}

/// Writes a chain, step by step.
class ChainText {
 public:
  void operator()(const DescendantsStep& step) {
    text_ += text_.empty() ? "**/" : "/**/";
    text_ += step.type == ElementType::any ? "*" : "XCUIElementType" + std::string(nameOf(step.type));
    endsInPick_ = false;
  }

  void operator()(const MatchingPredicateStep& step) {
    requireAskable(step.predicate);
    const WirePredicate predicate = wirePredicate(step.predicate);
    if (const auto* const asked = std::get_if<NSPredicate>(&predicate)) {
      append(*asked);
    } else if (!std::get<bool>(predicate)) {
      append(NSPredicate("\"a\" == \"b\""));
    }
  }

  void operator()(const MatchingIdentifierStep& step) { append(wireIdentifierPredicate(step.identifier)); }

  void operator()(const ElementPick& pick) {
    requireSegment();
    text_ = pickedFrom(text_, pick);
    endsInPick_ = true;
  }

  std::string text() const {
    requireSegment();
    return text_;
  }

 private:
  /// The protocol takes conditions and a pick behind a type, in this order.
  void requireSegment() const {
    if (text_.empty() || endsInPick_) {
      throw UnaskableQuery("over WebDriver, a query must begin with descendants, and go on with them after a pick");
    }
  }

  void append(const NSPredicate& predicate) {
    requireSegment();
    text_ += quoted(predicate);
  }

  std::string text_;
  bool endsInPick_ = false;
};

}  // namespace

std::string classChain(const XCUIElementQuery& query) {
  ChainText chain;
  for (const QueryStep& step : query.steps()) {
    std::visit(chain, step);
  }
  return chain.text();
}

std::string pickedFrom(const std::string& chain, const ElementPick& pick) {
  return chain + "[" + std::to_string(indexOf(pick) + 1) + "]";
}

std::size_t indexOf(const ElementPick& pick) {
  const auto* const atIndex = std::get_if<AtIndex>(&pick);
  return atIndex == nullptr ? 0 : atIndex->index;
}

}  // namespace quobrak::webdriver
