#pragma once

#include <memory>
#include <string_view>
#include <variant>

#include "platform/foundation/NSPredicate.h"

namespace quobrak {

/// Something that a predicate can be asked about.
class KeyValueSource {
 public:
  /// No value, a text or a truth value. A text lives as long as the source.
  using Value = std::variant<std::monostate, std::string_view, bool>;

  virtual ~KeyValueSource() = default;

  /// The attribute's value. For a key that the source does not know it raises an error of its own.
  virtual Value valueForKey(std::string_view key) const = 0;
};

/// Whether a text matches the pattern of a MATCHES only where it equals it, with `[c]` without regard to case: the
/// pattern holds no character that means something in a regular expression.
bool matchesOnlyItself(std::string_view pattern);

/// Evaluates one predicate over many elements: needles are folded and patterns compiled once, at construction.
///
/// A missing value equals only another missing value, and CONTAINS and MATCHES are false for it. Values of different
/// kinds are not equal. CONTAINS with an empty needle is false. Text is compared code point by code point.
class PredicateEvaluator {
 public:
  /// Throws `RegularExpressionError` when a MATCHES pattern does not compile.
  explicit PredicateEvaluator(const NSPredicate& predicate);
  ~PredicateEvaluator();
  PredicateEvaluator(PredicateEvaluator&&) noexcept;

  /// Throws `RegularExpressionError` when a pattern backtracks for ever, and what the source throws for unknown keys.
  bool evaluate(const KeyValueSource& source) const;

 private:
  struct Plan;
  std::unique_ptr<Plan> plan_;
};

}  // namespace quobrak
