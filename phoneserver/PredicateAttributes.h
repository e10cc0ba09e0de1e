#pragma once

#include <optional>

#include "drivers/simulator/Element.h"
#include "phoneserver/ServedPhone.h"
#include "platform/foundation/PredicateEvaluator.h"

namespace quobrak::phoneserver {

/// An element as predicates of clients see it. Both must outlive it.
class PredicateAttributes final : public KeyValueSource {
 public:
  PredicateAttributes(const ServedPhone& served, const simulator::Element& element)
      : served_(served), element_(element) {}

  /// Raises `WireError` "unknown error" for an attribute that elements do not have.
  Value valueForKey(std::string_view key) const override;

 private:
  const ServedPhone& served_;
  const simulator::Element& element_;
};

/// Raises `WireError` "unknown error" where the predicate asks for what elements do not have, whether or not its
/// evaluation would ever come to that.
void requireKnownAttributes(const NSPredicate& predicate);

/// A predicate of a client, made ready for many elements.
class ElementCondition {
 public:
  /// Raises `WireError` "unknown error" for an unknown attribute and for a pattern that does not compile. `served` must
  /// outlive it.
  ElementCondition(const ServedPhone& served, const NSPredicate& predicate);

  /// Raises `WireError` "unknown error" where a pattern backtracks for ever.
  bool holds(const simulator::Element& element) const;

 private:
  const ServedPhone& served_;
  std::optional<PredicateEvaluator> evaluator_;
};

}  // namespace quobrak::phoneserver
