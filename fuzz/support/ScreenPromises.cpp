#include "fuzz/support/ScreenPromises.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "drivers/simulator/HitTest.h"
#include "fuzz/support/Require.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::fuzz {

namespace {

using simulator::Element;

/// In document order, with the root.
std::vector<const Element*> elementsOf(const Element& root) {
  std::vector<const Element*> elements{&root};
  forEachDescendant(root, [&elements](const Element& element) { elements.push_back(&element); });
  return elements;
}

/// Infinite ones are known from old captures.
bool areNumbers(const Rect& frame) {
  return !std::isnan(frame.origin.x) && !std::isnan(frame.origin.y) && !std::isnan(frame.size.width) &&
         !std::isnan(frame.size.height);
}

void requireElementPromises(const Element& element) {
  for (const auto& child : element.children()) {
    require(child->parent() == &element, "an element knows what it is in");
  }
  require(isUTF8(element.label) && isUTF8(element.identifier) && isUTF8(element.value.value_or("")) &&
              isUTF8(element.placeholder.value_or("")),
          "the texts of an element are texts");
  require(areNumbers(element.frame), "an element has a place");
  const std::optional<Point> point = simulator::hitPoint(element);
  require(!point || (std::isfinite(point->x) && std::isfinite(point->y)), "a touch can only be meant for a place");
}

/// `elements` are all of the tree.
void requireHitPromises(const Element& root, const std::vector<const Element*>& elements) {
  for (const Element* const element : elements) {
    const std::optional<Point> point = simulator::hitPoint(*element);
    const Element* const taker = point ? simulator::elementAt(root, *point) : nullptr;
    if (taker != nullptr && !isWithin(*taker, *element)) {
      const auto takerPlace = std::find(elements.begin(), elements.end(), taker);
      const auto place = std::find(elements.begin(), elements.end(), element);
      require(takerPlace < place || !simulator::isHittable(*element), "what is hittable is not covered");
    }
    require(point || !simulator::isHittable(*element), "what cannot be touched anywhere is not hittable");
  }
}

}  // namespace

bool isOfThisWorld(const Element& root) {
  const std::vector<const Element*> elements = elementsOf(root);
  return std::all_of(elements.begin(), elements.end(), [](const Element* element) {
    const auto& [origin, size] = element->frame;
    return std::max({std::abs(origin.x), std::abs(origin.y), std::abs(size.width), std::abs(size.height)}) <
           END_OF_THE_WORLD;
  });
}

void requireScreenPromises(const Element& root) {
  require(root.parent() == nullptr, "a screen is in nothing");
  const std::vector<const Element*> elements = elementsOf(root);
  std::for_each(elements.begin(), elements.end(), [](const Element* element) { requireElementPromises(*element); });
  requireHitPromises(root, elements);
}

void requirePhonePromises(const simulator::Phone& phone) {
  const std::vector<const Element*> layers = phone.layers();
  require(!layers.empty() && layers.front()->type == ElementType::application, "an application is in front");
  requireScreenPromises(*layers.front());
  const std::vector<const Element*> elements = elementsOf(*layers.front());
  const auto focused =
      std::count_if(elements.begin(), elements.end(), [](const Element* element) { return element->hasKeyboardFocus; });
  const Element* const focus = phone.focusedElement();
  require(focused == (focus == nullptr ? 0 : 1), "one element at most has the keyboard's focus");
  require(focus == nullptr || (focus->hasKeyboardFocus && isWithin(*focus, *layers.front())),
          "what has the keyboard's focus is on the screen");
  require(phone.volume() >= 0 && phone.volume() <= 100, "the volume is a percentage");
  const simulator::SystemAlert* const alert = phone.alert();
  require(alert == nullptr || isWithin(*alert->window, *phone.running(phone.description().home)->screen),
          "an alert belongs to the home application");
}

}  // namespace quobrak::fuzz
