#include "tests/oracles/TouchOracle.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "tests/oracles/XPathDocument.h"

namespace quobrak::oracles {

namespace {

template <std::size_t COUNT>
bool isOneOf(const std::string& type, const std::array<std::string_view, COUNT>& types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

/// What scrolls shows its content within its frame alone.
bool clips(const ElementFacts& element) {
  constexpr std::array<std::string_view, 6> CLIPPING{"Application",    "ScrollView", "Table",
                                                     "CollectionView", "WebView",    "TextView"};
  return isOneOf(element.type, CLIPPING);
}

/// What asks a question takes the touches of the whole screen.
bool isModal(const ElementFacts& element) {
  constexpr std::array<std::string_view, 3> MODAL{"Alert", "Sheet", "Dialog"};
  return isOneOf(element.type, MODAL);
}

/// Containers let touches through, of those without a kind the ones that nobody has labelled.
bool takesTouches(const ElementFacts& element) {
  constexpr std::array<std::string_view, 3> CONTAINERS{"Application", "Window", "Group"};
  constexpr std::array<std::string_view, 2> WITHOUT_KIND{"Any", "Other"};
  const bool isNamed = !isOneOf(element.type, WITHOUT_KIND) || !element.label.empty();
  return isNamed && !isOneOf(element.type, CONTAINERS);
}

/// The rectangle as it can be reckoned with: one with an edge that is no number is nowhere.
Rect finite(const Rect& rect) {
  const bool isFinite =
      std::isfinite(rect.origin.x + rect.size.width) && std::isfinite(rect.origin.y + rect.size.height);
  return isFinite ? rect : Rect{};
}

bool isEmpty(const Rect& rect) {
  return rect.size.width <= 0 || rect.size.height <= 0;
}

Rect common(const Rect& one, const Rect& other) {
  const Point origin{std::max(one.origin.x, other.origin.x), std::max(one.origin.y, other.origin.y)};
  const double right = std::min(one.origin.x + one.size.width, other.origin.x + other.size.width);
  const double bottom = std::min(one.origin.y + one.size.height, other.origin.y + other.size.height);
  return right <= origin.x || bottom <= origin.y ? Rect{} : Rect{origin, {right - origin.x, bottom - origin.y}};
}

Point middle(const Rect& rect) {
  return {rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
}

/// The right and the lower edge belong to what is beside.
bool holds(const Rect& rect, Point point) {
  return rect.origin.x <= point.x && point.x < rect.origin.x + rect.size.width && rect.origin.y <= point.y &&
         point.y < rect.origin.y + rect.size.height;
}

}  // namespace

TouchOracle::TouchOracle(std::string_view pageSource, Size screen) {
  XPathDocument document(pageSource);
  const PageFacts page = factsOf(document);
  const Rect whole = page.application ? finite(page.application->frame) : Rect{{0, 0}, screen};
  /// The elements around the one at hand, by their place, and what they show of it.
  struct Around {
    std::size_t place;
    std::size_t depth;
    Rect shown;
  };
  std::vector<Around> around;
  for (const ElementFacts& element : page.elements) {
    while (!around.empty() && around.back().depth >= element.depth) {
      elements_[around.back().place].end = elements_.size();
      around.pop_back();
    }
    const Rect shown = around.empty() ? whole : around.back().shown;
    const Rect frame = finite(element.frame);
    const Rect seen = common(frame, shown);
    const Rect reach = isModal(element) && !isEmpty(frame) ? whole : seen;
    around.push_back({elements_.size(), element.depth, clips(element) ? seen : shown});
    elements_.push_back({.seen = seen,
                         .taking = takesTouches(element) ? reach : Rect{},
                         .isVisible = element.isVisible,
                         .end = page.elements.size()});
  }
}

Touchability TouchOracle::touchabilityOf(std::size_t place) const {
  const Placed& element = elements_[place];
  if (isEmpty(element.seen)) {
    return Touchability::untouchable;
  }
  const auto covers = [touch = middle(element.seen)](const Placed& later) { return holds(later.taking, touch); };
  const auto behind = elements_.begin() + static_cast<std::ptrdiff_t>(element.end);
  if (std::any_of(behind, elements_.end(), [&](const Placed& later) { return later.isVisible && covers(later); })) {
    return Touchability::untouchable;
  }
  const bool isSure = element.isVisible && std::none_of(behind, elements_.end(), covers);
  return isSure ? Touchability::touchable : Touchability::undecided;
}

}  // namespace quobrak::oracles
