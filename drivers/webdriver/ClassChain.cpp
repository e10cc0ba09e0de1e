#include "drivers/webdriver/ClassChain.h"

#include <algorithm>
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

struct IsSame {
  bool operator()(const DescendantsStep& one, const DescendantsStep& other) const { return one.type == other.type; }
  /// Copies of a predicate share its tree.
  bool operator()(const MatchingPredicateStep& one, const MatchingPredicateStep& other) const {
    return &one.predicate.node() == &other.predicate.node();
  }
  bool operator()(const MatchingIdentifierStep& one, const MatchingIdentifierStep& other) const {
    return one.identifier == other.identifier;
  }
  bool operator()(const ElementPick& one, const ElementPick& other) const { return indexOf(one) == indexOf(other); }
  template <class One, class Other>
  bool operator()(const One&, const Other&) const {
    return false;
  }
};

bool areSame(const std::vector<QueryStep>& ones, const std::vector<QueryStep>& others) {
  return std::equal(ones.begin(), ones.end(), others.begin(), others.end(),
                    [](const QueryStep& one, const QueryStep& other) { return std::visit(IsSame{}, one, other); });
}

}  // namespace

const std::string& LastClassChain::of(const XCUIElementQuery& query) {
  if (steps_.empty() || !areSame(steps_, query.steps())) {
    chain_ = classChain(query);
    steps_ = query.steps();
  }
  return chain_;
}

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
