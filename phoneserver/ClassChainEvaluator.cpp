#include "phoneserver/ClassChainEvaluator.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <utility>

#include "phoneserver/PredicateAttributes.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

class ElementSet {
 public:
  explicit ElementSet(const FoundElements& elements) : elements_(elements.begin(), elements.end()) {}
  bool contains(const Element& element) const { return elements_.contains(&element); }

 private:
  std::unordered_set<const Element*> elements_;
};

/// Collects what a segment reaches from the elements before it, in one walk, so that nothing is met twice and all comes
/// in the order of the document.
class SegmentWalk {
 public:
  SegmentWalk(const ChainSegment& segment, const FoundElements& from, int deepest)
      : segment_(segment), from_(from), deepest_(deepest) {}

  FoundElements reached(const Element& root) {
    walk(root, 0, Place::outside);
    return std::move(reached_);
  }

 private:
  enum class Place { outside, within };

  void walk(const Element& element, int depth, Place place) {
    const bool isStart = from_.contains(element);
    const bool takesChildren = isStart || (segment_.takesDescendants && place == Place::within);
    const Place below = isStart || place == Place::within ? Place::within : Place::outside;
    if (depth == deepest_) {
      return;
    }
    for (const auto& child : element.children()) {
      if (takesChildren && (segment_.type == ElementType::any || child->type == segment_.type)) {
        reached_.push_back(child.get());
      }
      walk(*child, depth + 1, below);
    }
  }

  const ChainSegment& segment_;
  ElementSet from_;
  int deepest_;
  FoundElements reached_;
};

bool holdsBelow(const ElementCondition& condition, const Element& element) {
  return std::any_of(element.children().begin(), element.children().end(), [&condition](const auto& child) {
    return condition.holds(*child) || holdsBelow(condition, *child);
  });
}

FoundElements atPosition(const FoundElements& elements, int position) {
  const auto count = static_cast<std::ptrdiff_t>(elements.size());
  const std::ptrdiff_t index = position > 0 ? position - 1 : count + position;
  return index >= 0 && index < count ? FoundElements{elements[static_cast<std::size_t>(index)]} : FoundElements{};
}

}  // namespace

FoundElements elementsOfChain(const SearchScope& scope, std::span<const ChainSegment> chain) {
  FoundElements found{&scope.root};
  for (const ChainSegment& segment : chain) {
    found = SegmentWalk(segment, found, scope.deepest).reached(scope.root);
    for (const ChainPredicate& predicate : segment.predicates) {
      const ElementCondition condition(scope.served, predicate.predicate);
      std::erase_if(found, [&](const Element* element) {
        return predicate.isOfADescendant ? !holdsBelow(condition, *element) : !condition.holds(*element);
      });
    }
    if (segment.position) {
      found = atPosition(found, *segment.position);
    }
  }
  return found;
}

}  // namespace quobrak::phoneserver
