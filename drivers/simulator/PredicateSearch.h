#pragma once

#include <functional>
#include <memory>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/ElementIndex.h"
#include "drivers/simulator/PlaceSet.h"
#include "platform/foundation/NSPredicate.h"

namespace quobrak::simulator {

/// A predicate made ready for searching trees. It holds for the elements for which `PredicateEvaluator` says so, and no
/// element is asked more than that would ask it; but a part of the predicate is asked of all elements before the next
/// one is, and most parts are answered by one look at the column of an attribute.
class PredicateSearch {
 public:
  /// `isHittable` answers for an element whether it is hittable; it must outlive this object. Throws
  /// `RegularExpressionError` when a MATCHES pattern does not compile.
  PredicateSearch(const NSPredicate& predicate, const std::function<bool(const Element&)>& isHittable);
  ~PredicateSearch();
  PredicateSearch(PredicateSearch&&) noexcept;

  /// Those of the elements for which the predicate holds. Throws `RegularExpressionError` when a pattern backtracks for
  /// ever, and `UnknownAttributeError`.
  PlaceSet matches(const ElementIndex& index, const PlaceSet& elements) const;

  /// One part of a predicate.
  class Condition;

 private:
  std::unique_ptr<const Condition> condition_;
};

}  // namespace quobrak::simulator
