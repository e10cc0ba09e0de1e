#include "drivers/simulator/Scrolling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"

namespace quobrak::simulator {

namespace {

/// One of the two directions in which things lie beside each other.
struct Axis {
  double Point::*origin;
  double Size::*extent;
  double FingerMove::*move;
  /// How the platform's indicators of how far a list is scrolled along the axis begin.
  std::string_view scrollBar;
};

constexpr Axis HORIZONTAL{&Point::x, &Size::width, &FingerMove::dx, "Horizontal scroll bar"};
constexpr Axis VERTICAL{&Point::y, &Size::height, &FingerMove::dy, "Vertical scroll bar"};

/// A distance on the screen that is but a trace of how computers count.
constexpr double NEGLIGIBLE = 1e-6;

double startOf(const Rect& frame, const Axis& axis) {
  return frame.origin.*axis.origin;
}

double endOf(const Rect& frame, const Axis& axis) {
  return startOf(frame, axis) + frame.size.*axis.extent;
}

/// Indicators lie over the content and do not move with it.
bool isScrollBar(const Element& element, const Axis& axis) {
  const std::string& name = element.label.empty() ? element.identifier : element.label;
  return (element.type == ElementType::other || element.type == ElementType::scrollBar) &&
         name.starts_with(axis.scrollBar);
}

bool isScrollBar(const Element& element) {
  return element.type == ElementType::scrollBar || isScrollBar(element, HORIZONTAL) || isScrollBar(element, VERTICAL);
}

/// What lies beside the frame of an element at its screen's start: how far its content may be moved along an axis, from
/// there.
struct Room {
  /// Not above 0.
  double backward = 0;
  /// Not below 0.
  double forward = 0;
};

/// The content's least and greatest place along an axis.
struct Extent {
  double start = std::numeric_limits<double>::infinity();
  double end = -std::numeric_limits<double>::infinity();
};

void addContentOf(const Element& container, const Axis& axis, Extent& extent) {
  for (const auto& child : container.children()) {
    if (isScrollBar(*child)) {
      continue;
    }
    if (!isEmpty(child->frame)) {
      extent.start = std::min(extent.start, startOf(child->frame, axis));
      extent.end = std::max(extent.end, endOf(child->frame, axis));
    }
    // What an element within shows only a part of is content of its own.
    if (!clipsItsChildren(child->type)) {
      addContentOf(*child, axis, extent);
    }
  }
}

bool isLowerBar(ElementType type) {
  return type == ElementType::tabBar || type == ElementType::toolbar;
}

/// The lower edge of what can be seen of the content: a bar in front of a list that reaches under it hides the rest.
double lowerEdgeOf(const Element& scroller) {
  double edge = endOf(scroller.frame, VERTICAL);
  bool isInFront = false;
  forEachDescendant(rootOf(scroller), [&](const Element& element) {
    isInFront = isInFront || &element == &scroller;
    const Rect& frame = element.frame;
    if (isInFront && isLowerBar(element.type) && !element.isHidden && !isEmpty(intersection(frame, scroller.frame)) &&
        startOf(frame, VERTICAL) > startOf(scroller.frame, VERTICAL) &&
        endOf(frame, VERTICAL) >= endOf(scroller.frame, VERTICAL)) {
      edge = std::min(edge, startOf(frame, VERTICAL));
    }
  });
  return edge;
}

Room roomOf(const Element& scroller, const Axis& axis) {
  Extent content;
  addContentOf(scroller, axis, content);
  const double scrolled = scroller.scrolled.*axis.origin;
  const bool isLonger = content.end - scrolled > endOf(scroller.frame, axis);
  const double end = isLonger && &axis == &VERTICAL ? lowerEdgeOf(scroller) : endOf(scroller.frame, axis);
  return {.backward = std::min(end - (content.end - scrolled), 0.0),
          .forward = std::max(startOf(scroller.frame, axis) - (content.start - scrolled), 0.0)};
}

/// How far the content moves where the finger would move it by `wanted`.
double possibleMove(const Element& scroller, const Axis& axis, double wanted) {
  const Room room = roomOf(scroller, axis);
  const double scrolled = scroller.scrolled.*axis.origin;
  const double possible = std::clamp(scrolled + wanted, room.backward, room.forward) - scrolled;
  return std::abs(possible) < NEGLIGIBLE ? 0 : possible;
}

void shiftContent(Element& scroller, FingerMove move) {
  for (const auto& child : scroller.children()) {
    if (!isScrollBar(*child)) {
      shift(*child, move);
    }
  }
  scroller.scrolled.x += move.dx;
  scroller.scrolled.y += move.dy;
}

/// The indicators tell how far the list is scrolled, in percent.
void updateScrollBars(Element& scroller, const Axis& axis) {
  const Room room = roomOf(scroller, axis);
  const double length = room.forward - room.backward;
  for (const auto& child : scroller.children()) {
    if (length > 0 && isScrollBar(*child, axis)) {
      const double share = (room.forward - scroller.scrolled.*axis.origin) / length;
      child->value = std::to_string(std::lround(100 * share)) + "%";
    }
  }
}

const Axis& mainAxisOf(FingerMove move) {
  return std::abs(move.dx) > std::abs(move.dy) ? HORIZONTAL : VERTICAL;
}

/// The innermost element around `touched`, or that itself, whose content can follow the finger along the axis.
Element* scrollerFor(Element& touched, const Axis& axis, double move) {
  for (Element* element = &touched; element != nullptr; element = element->parent()) {
    if (scrolls(element->type) && possibleMove(*element, axis, move) != 0) {
      return element;
    }
  }
  return nullptr;
}

void scroll(Element& scroller, FingerMove move) {
  shiftContent(scroller,
               {.dx = possibleMove(scroller, HORIZONTAL, move.dx), .dy = possibleMove(scroller, VERTICAL, move.dy)});
  updateScrollBars(scroller, HORIZONTAL);
  updateScrollBars(scroller, VERTICAL);
}

FingerMove unitMove(SwipeDirection direction) {
  switch (direction) {
    case SwipeDirection::up:
      return {.dx = 0, .dy = -1};
    case SwipeDirection::down:
      return {.dx = 0, .dy = 1};
    case SwipeDirection::left:
      return {.dx = -1, .dy = 0};
    case SwipeDirection::right:
      return {.dx = 1, .dy = 0};
  }
  return {};
}

}  // namespace

bool scrolls(ElementType type) {
  return type == ElementType::scrollView || type == ElementType::table || type == ElementType::collectionView ||
         type == ElementType::webView || type == ElementType::textView;
}

void shift(Element& element, FingerMove move) {
  const auto shiftOne = [move](Element& one) {
    one.frame.origin.x += move.dx;
    one.frame.origin.y += move.dy;
  };
  shiftOne(element);
  forEachDescendant(element, shiftOne);
}

Element* dragContent(Element& touched, FingerMove move) {
  const Axis& axis = mainAxisOf(move);
  Element* const scroller = scrollerFor(touched, axis, move.*axis.move);
  if (scroller != nullptr) {
    scroll(*scroller, move);
  }
  return scroller;
}

Element* swipeContent(Element& touched, SwipeDirection direction, const Rect& area) {
  const FingerMove unit = unitMove(direction);
  const Axis& axis = mainAxisOf(unit);
  Element* const scroller = scrollerFor(touched, axis, unit.*axis.move);
  if (scroller == nullptr) {
    return nullptr;
  }
  const double distance = SWIPED_SHARE * intersection(visiblePart(*scroller), area).size.*axis.extent;
  scroll(*scroller, {.dx = unit.dx * distance, .dy = unit.dy * distance});
  return scroller;
}

bool isScrolledTo(const Element& scroller, ScrollEnd end) {
  for (const Axis* axis : {&VERTICAL, &HORIZONTAL}) {
    const Room room = roomOf(scroller, *axis);
    if (room.forward - room.backward > NEGLIGIBLE) {
      const double left = scroller.scrolled.*axis->origin - (end == ScrollEnd::end ? room.backward : room.forward);
      return std::abs(left) < NEGLIGIBLE;
    }
  }
  return false;
}

double lowerEdgeOfContent(const Element& parent) {
  Extent content;
  addContentOf(parent, VERTICAL, content);
  return std::max(content.end, startOf(parent.frame, VERTICAL));
}

}  // namespace quobrak::simulator
