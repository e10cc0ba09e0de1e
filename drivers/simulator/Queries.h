#pragma once

#include <functional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "drivers/simulator/Element.h"
#include "platform/foundation/PredicateEvaluator.h"
#include "platform/uiautomation/XCUIElement.h"

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

/// Evaluates queries over an element tree. Elements come in document order.
class QueryEvaluator {
 public:
  explicit QueryEvaluator(std::function<bool(const Element&)> isHittable) : isHittable_(std::move(isHittable)) {}

  /// The elements that the query's steps keep, from `root` on. Throws `RegularExpressionError` and
  /// `UnknownAttributeError`.
  std::vector<const Element*> elements(const XCUIElementQuery& query, const Element& root) const;

  /// The element that is picked, or null.
  const Element* element(const XCUIElement& element, const Element& root) const;

  /// What is found on the way to the element: the root, what each step keeps and, where one is picked, that.
  std::vector<std::vector<const Element*>> stages(const XCUIElement& element, const Element& root) const;

 private:
  std::function<bool(const Element&)> isHittable_;
};

}  // namespace quobrak::simulator
