#include "drivers/simulator/HiddenElements.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_set>

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"

namespace quobrak::simulator {

namespace {

using Elements = std::unordered_set<const Element*>;

bool holdsOtherThan(const Element& element, const Elements& invisible) {
  return std::any_of(element.children().begin(), element.children().end(), [&invisible](const auto& child) {
    return !invisible.contains(child.get()) || holdsOtherThan(*child, invisible);
  });
}

/// A row answers for what it shows: its pictures and arrows are no elements of their own, which captures call
/// invisible.
bool isPartOfVisibleCell(const Element& element, Point place, const Elements& invisible) {
  const Element* cell = element.parent();
  while (cell != nullptr && cell->type != ElementType::cell) {
    cell = cell->parent();
  }
  return cell != nullptr && !invisible.contains(cell) && contains(cell->frame, place);
}

}  // namespace

void hideInvisible(Element& root, const std::vector<Element*>& invisible) {
  const Elements set(invisible.begin(), invisible.end());
  std::vector<Element*> candidates;
  for (Element* const element : invisible) {
    const std::optional<Point> place = hitPoint(*element);
    if (element != &root && place && !isPartOfVisibleCell(*element, *place, set) && !holdsOtherThan(*element, set)) {
      candidates.push_back(element);
    }
  }
  // Nothing is covered by what cannot be seen itself.
  for (Element* const element : candidates) {
    element->isHidden = true;
  }
  std::vector<Element*> covered;
  std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(covered),
               [](const Element* element) { return isCovered(*element); });
  for (Element* const element : covered) {
    element->isHidden = false;
  }
}

}  // namespace quobrak::simulator
