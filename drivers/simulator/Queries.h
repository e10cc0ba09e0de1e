#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "drivers/simulator/Element.h"
#include "drivers/simulator/ElementIndex.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::simulator {

/// Evaluates queries over an element tree. Elements come in document order.
class QueryEvaluator {
 public:
  /// Keeps nothing from one query to the next.
  explicit QueryEvaluator(std::function<bool(const Element&)> isHittable) : isHittable_(std::move(isHittable)) {}

  /// The index of the tree that was asked last serves until `revision` answers something else. That it must do after
  /// every change of any tree that is asked.
  QueryEvaluator(std::function<bool(const Element&)> isHittable, std::function<std::uint64_t()> revision)
      : isHittable_(std::move(isHittable)), revision_(std::move(revision)) {}

  /// The elements that the query's steps keep, from `root` on. Throws `RegularExpressionError` and
  /// `UnknownAttributeError`.
  std::vector<const Element*> elements(const XCUIElementQuery& query, const Element& root) const;

  /// The element that is picked, or null.
  const Element* element(const XCUIElement& element, const Element& root) const;

  /// What is found on the way to the element: the root, what each step keeps and, where one is picked, that.
  std::vector<std::vector<const Element*>> stages(const XCUIElement& element, const Element& root) const;

 private:
  struct Kept {
    std::shared_ptr<const ElementIndex> index;
    std::uint64_t rootNumber = 0;
    std::uint64_t revision = 0;
  };

  std::shared_ptr<const ElementIndex> indexOf(const Element& root) const;

  std::function<bool(const Element&)> isHittable_;
  std::function<std::uint64_t()> revision_;
  mutable Kept kept_;
};

}  // namespace quobrak::simulator
