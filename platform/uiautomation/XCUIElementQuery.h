#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/foundation/NSPredicate.h"
#include "platform/uiautomation/ElementType.h"

namespace quobrak {

class XCUIElement;

/// A query that starts at an application.
struct ApplicationRoot {
  std::string bundleIdentifier;
};

/// An element that a driver handed over, such as an alert. Only the driver that made it knows what is inside.
class ElementHandle {
 public:
  virtual ~ElementHandle() = default;
  /// What the element is, in words, for error texts.
  virtual std::string description() const = 0;
};

using QueryRoot = std::variant<ApplicationRoot, std::shared_ptr<const ElementHandle>>;

/// Keeps the elements' descendants of a type (`ElementType::any`: all of them), never the elements themselves.
struct DescendantsStep {
  ElementType type;
};
/// Keeps the elements for which the predicate holds.
struct MatchingPredicateStep {
  NSPredicate predicate;
};
/// Keeps the elements whose identifier or label is the text.
struct MatchingIdentifierStep {
  std::string identifier;
};

/// How one element is picked from those that a query finds.
struct AtIndex {
  std::size_t index;
};
struct FirstMatch {};
/// The only match; where there are several, the first one is it.
struct SingleMatch {};
using ElementPick = std::variant<AtIndex, FirstMatch, SingleMatch>;

using QueryStep = std::variant<DescendantsStep, MatchingPredicateStep, MatchingIdentifierStep, ElementPick>;

/// A description of elements: a root and a chain of steps. A value; nothing touches the phone until `count` is asked.
/// Elements come in document order, depth first.
class XCUIElementQuery {
 public:
  explicit XCUIElementQuery(QueryRoot root) : root_(std::move(root)) {}

  const QueryRoot& root() const { return root_; }
  const std::vector<QueryStep>& steps() const { return steps_; }

  /// The query with one more step.
  XCUIElementQuery appending(QueryStep step) const;

  XCUIElementQuery matching(NSPredicate predicate) const;
  XCUIElementQuery matchingIdentifier(std::string_view identifier) const;

  XCUIElement element() const;
  XCUIElement elementMatching(NSPredicate predicate) const;
  XCUIElement elementBoundBy(std::size_t index) const;
  XCUIElement firstMatch() const;
  /// The element whose identifier or label is the text.
  XCUIElement operator[](std::string_view identifier) const;

  /// How many elements there are now.
  std::size_t count() const;

 private:
  QueryRoot root_;
  std::vector<QueryStep> steps_;
};

}  // namespace quobrak
