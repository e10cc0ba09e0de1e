#include "platform/foundation/PredicateEvaluator.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/Unicode.h"

namespace quobrak {

namespace {

using Value = KeyValueSource::Value;

/// A predicate made ready for many sources.
class Condition {
 public:
  virtual ~Condition() = default;
  virtual bool holds(const KeyValueSource& source) const = 0;
};

std::unique_ptr<const Condition> prepared(const NSPredicate& predicate);

class Junction final : public Condition {
 public:
  explicit Junction(const NSPredicate::Compound& compound) : junction_(compound.junction) {
    for (const NSPredicate& part : compound.parts) {
      parts_.push_back(prepared(part));
    }
  }

  bool holds(const KeyValueSource& source) const override {
    const auto partHolds = [&source](const auto& part) { return part->holds(source); };
    switch (junction_) {
      case NSPredicate::Junction::conjunction:
        return std::all_of(parts_.begin(), parts_.end(), partHolds);
      case NSPredicate::Junction::disjunction:
        return std::any_of(parts_.begin(), parts_.end(), partHolds);
      case NSPredicate::Junction::negation:
        return !partHolds(parts_.front());
    }
    return false;
  }

 private:
  NSPredicate::Junction junction_;
  std::vector<std::unique_ptr<const Condition>> parts_;
};

/// One side of a comparison. What does not depend on the source is folded once.
class Side {
 public:
  Side(const NSPredicate::Operand& operand, bool ignoresCase) : operand_(operand) {
    if (const auto* text = std::get_if<std::string>(&operand_); text != nullptr && ignoresCase) {
      folded_ = caseFolded(*text);
    }
  }

  Value value(const KeyValueSource& source) const {
    if (const auto* keyPath = std::get_if<NSPredicate::KeyPath>(&operand_)) {
      return source.valueForKey(keyPath->name);
    }
    if (const auto* text = std::get_if<std::string>(&operand_)) {
      return std::string_view(*text);
    }
    return std::get<bool>(operand_);
  }

  /// `text` is what `value` gave; `storage` keeps what is folded only now.
  const FoldedText& folded(std::string_view text, FoldedText& storage) const {
    if (folded_) {
      return *folded_;
    }
    storage = caseFolded(text);
    return storage;
  }

 private:
  NSPredicate::Operand operand_;
  std::optional<FoldedText> folded_;
};

class Comparison : public Condition {
 public:
  explicit Comparison(const NSPredicate::Comparison& comparison)
      : ignoresCase_(comparison.ignoresCase),
        left_(comparison.left, comparison.ignoresCase),
        right_(comparison.right, comparison.ignoresCase) {}

  bool holds(const KeyValueSource& source) const final {
    const Value left = left_.value(source);
    const Value right = right_.value(source);
    const auto* leftText = std::get_if<std::string_view>(&left);
    const auto* rightText = std::get_if<std::string_view>(&right);
    return leftText != nullptr && rightText != nullptr ? holdsForTexts(*leftText, *rightText)
                                                       : holdsForOthers(left, right);
  }

 protected:
  bool ignoresCase() const { return ignoresCase_; }
  const Side& left() const { return left_; }
  const Side& right() const { return right_; }

 private:
  virtual bool holdsForTexts(std::string_view left, std::string_view right) const = 0;
  /// Where at least one of the values is not a text.
  virtual bool holdsForOthers(const Value& /*left*/, const Value& /*right*/) const { return false; }

  bool ignoresCase_;
  Side left_;
  Side right_;
};

class Equality final : public Comparison {
 public:
  using Comparison::Comparison;

 private:
  bool holdsForTexts(std::string_view leftText, std::string_view rightText) const override {
    if (!ignoresCase()) {
      return leftText == rightText;
    }
    FoldedText leftStorage;
    FoldedText rightStorage;
    return left().folded(leftText, leftStorage).text == right().folded(rightText, rightStorage).text;
  }

  bool holdsForOthers(const Value& leftValue, const Value& rightValue) const override {
    return leftValue == rightValue;
  }
};

class Containment final : public Comparison {
 public:
  using Comparison::Comparison;

 private:
  bool holdsForTexts(std::string_view text, std::string_view needle) const override {
    if (!ignoresCase()) {
      return !needle.empty() && text.find(needle) != text.npos;
    }
    FoldedText textStorage;
    FoldedText needleStorage;
    return contains(left().folded(text, textStorage), right().folded(needle, needleStorage));
  }
};

/// What stands on the right of MATCHES. Most patterns are plain words, for which comparing is enough.
class Pattern {
 public:
  Pattern(std::string_view pattern, bool ignoresCase) : ignoresCase_(ignoresCase) {
    if (matchesOnlyItself(pattern)) {
      word_ = ignoresCase ? caseFolded(pattern).text : pattern;
    } else {
      expression_.emplace((ignoresCase ? "(?i)" : "") + std::string(pattern));
    }
  }

  bool matches(std::string_view text) const {
    if (expression_) {
      return expression_->matchesWhole(text);
    }
    return ignoresCase_ ? caseFolded(text).text == word_ : text == word_;
  }

 private:
  bool ignoresCase_;
  std::optional<NSRegularExpression> expression_;
  std::string word_;
};

class Match final : public Comparison {
 public:
  explicit Match(const NSPredicate::Comparison& comparison) : Comparison(comparison) {
    if (const auto* pattern = std::get_if<std::string>(&comparison.right)) {
      pattern_.emplace(*pattern, comparison.ignoresCase);
    }
  }

 private:
  bool holdsForTexts(std::string_view text, std::string_view pattern) const override {
    return pattern_ ? pattern_->matches(text) : Pattern(pattern, ignoresCase()).matches(text);
  }

  std::optional<Pattern> pattern_;
};

std::unique_ptr<const Condition> prepared(const NSPredicate& predicate) {
  if (const auto* compound = std::get_if<NSPredicate::Compound>(&predicate.node())) {
    return std::make_unique<Junction>(*compound);
  }
  const auto& comparison = std::get<NSPredicate::Comparison>(predicate.node());
  switch (comparison.op) {
    case NSPredicate::Operator::equalTo:
      return std::make_unique<Equality>(comparison);
    case NSPredicate::Operator::contains:
      return std::make_unique<Containment>(comparison);
    case NSPredicate::Operator::matches:
      return std::make_unique<Match>(comparison);
  }
  return nullptr;
}

}  // namespace

bool matchesOnlyItself(std::string_view pattern) {
  constexpr std::string_view SPECIAL_CHARACTERS = R"(\^$.|?*+()[]{})";
  return pattern.find_first_of(SPECIAL_CHARACTERS) == pattern.npos;
}

struct PredicateEvaluator::Plan {
  std::unique_ptr<const Condition> condition;
};

PredicateEvaluator::PredicateEvaluator(const NSPredicate& predicate)
    : plan_(std::make_unique<Plan>(Plan{prepared(predicate)})) {}

PredicateEvaluator::~PredicateEvaluator() = default;
PredicateEvaluator::PredicateEvaluator(PredicateEvaluator&&) noexcept = default;

bool PredicateEvaluator::evaluate(const KeyValueSource& source) const {
  return plan_->condition->holds(source);
}

}  // namespace quobrak
