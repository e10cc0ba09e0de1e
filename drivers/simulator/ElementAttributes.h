#pragma once

#include <functional>
#include <stdexcept>
#include <string_view>

#include "drivers/simulator/Element.h"
#include "platform/foundation/PredicateEvaluator.h"

namespace quobrak::simulator {

/// A predicate asks for an attribute that elements do not have.
class UnknownAttributeError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An element as predicates see it; null is an absent one. Throws `UnknownAttributeError`.
class ElementAttributes final : public KeyValueSource {
 public:
  /// `isHittable` answers for the element whether it is hittable; it must outlive this object.
  ElementAttributes(const Element* element, const std::function<bool(const Element&)>& isHittable)
      : element_(element), isHittable_(isHittable) {}

  Value valueForKey(std::string_view key) const override;

 private:
  const Element* element_;
  const std::function<bool(const Element&)>& isHittable_;
};

/// Throws `UnknownAttributeError` where the predicate asks for what elements do not have, whether or not its evaluation
/// would ever come to that.
void requireKnownAttributes(const NSPredicate& predicate);

}  // namespace quobrak::simulator
