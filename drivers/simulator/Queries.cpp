#include "drivers/simulator/Queries.h"

#include <cstddef>
#include <variant>

#include "drivers/simulator/PlaceSet.h"
#include "drivers/simulator/PredicateSearch.h"

namespace quobrak::simulator {

namespace {

using Elements = std::vector<const Element*>;

/// Applies one step to the elements found so far.
class StepApplication {
 public:
  StepApplication(const ElementIndex& index, const PlaceSet& found,
                  const std::function<bool(const Element&)>& isHittable)
      : index_(index), found_(found), isHittable_(isHittable) {}

  PlaceSet operator()(const DescendantsStep& step) const { return index_.descendants(found_, step.type); }

  PlaceSet operator()(const MatchingPredicateStep& step) const {
    return PredicateSearch(step.predicate, isHittable_).matches(index_, found_);
  }

  PlaceSet operator()(const MatchingIdentifierStep& step) const {
    PlaceSet named = index_.texts(TextAttribute::identifier, TextForm::plain).equalTo(step.identifier);
    named |= index_.texts(TextAttribute::label, TextForm::plain).equalTo(step.identifier);
    return named &= found_;
  }

  PlaceSet operator()(const ElementPick& pick) const {
    const auto* const atIndex = std::get_if<AtIndex>(&pick);
    const std::size_t wanted = atIndex == nullptr ? 0 : atIndex->index;
    PlaceSet picked = index_.noPlace();
    std::size_t count = 0;
    found_.forEach([&](std::size_t place) {
      if (count++ == wanted) {
        picked.insert(place);
      }
    });
    return picked;
  }

 private:
  const ElementIndex& index_;
  const PlaceSet& found_;
  const std::function<bool(const Element&)>& isHittable_;
};

PlaceSet rootOf(const ElementIndex& index) {
  PlaceSet root = index.noPlace();
  root.insert(0);
  return root;
}

Elements elementsAt(const ElementIndex& index, const PlaceSet& places) {
  Elements elements;
  places.forEach([&](std::size_t place) { elements.push_back(&index.element(place)); });
  return elements;
}

/// The query that finds the element alone, or nothing.
XCUIElementQuery picking(const XCUIElement& element) {
  return element.pick() ? element.query().appending(*element.pick()) : element.query();
}

}  // namespace

std::shared_ptr<const ElementIndex> QueryEvaluator::indexOf(const Element& root) const {
  if (!revision_) {
    return std::make_shared<const ElementIndex>(root);
  }
  const std::uint64_t revision = revision_();
  if (kept_.index == nullptr || kept_.rootNumber != root.number || kept_.revision != revision) {
    kept_ = {std::make_shared<const ElementIndex>(root), root.number, revision};
  }
  return kept_.index;
}

Elements QueryEvaluator::elements(const XCUIElementQuery& query, const Element& root) const {
  const auto index = indexOf(root);
  PlaceSet found = rootOf(*index);
  for (const QueryStep& step : query.steps()) {
    found = std::visit(StepApplication(*index, found, isHittable_), step);
  }
  return elementsAt(*index, found);
}

const Element* QueryEvaluator::element(const XCUIElement& element, const Element& root) const {
  const Elements found = elements(picking(element), root);
  return found.empty() ? nullptr : found.front();
}

std::vector<Elements> QueryEvaluator::stages(const XCUIElement& element, const Element& root) const {
  const auto index = indexOf(root);
  const XCUIElementQuery query = picking(element);
  PlaceSet found = rootOf(*index);
  std::vector<Elements> stages{elementsAt(*index, found)};
  for (const QueryStep& step : query.steps()) {
    found = std::visit(StepApplication(*index, found, isHittable_), step);
    stages.push_back(elementsAt(*index, found));
  }
  return stages;
}

}  // namespace quobrak::simulator
