#pragma once

#include "drivers/simulator/Element.h"
#include "drivers/simulator/Rule.h"
#include "platform/uiautomation/Geometry.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::simulator {

/// How far, and where, a finger moves while it touches the screen, in points.
struct FingerMove {
  double dx = 0;
  double dy = 0;
};

/// How much of what is seen of a list one swipe moves it by. A finger that is flicked over a list leaves a part of what
/// was seen in sight, so that nobody who swipes from one end to the other misses a row; a quarter shows the row that
/// was cut off at the edge, in lists of four rows and more.
constexpr double SWIPED_SHARE = 0.75;

/// Whether elements of that type show a part of their content, and another part when a finger moves it.
bool scrolls(ElementType type);

/// Moves the element with all that is in it.
void shift(Element& element, FingerMove move);

/// Moves the content under a finger that touched `touched` along with the finger, as far as there is content: that of
/// the innermost element around it that has more of it along the finger's main direction. The content of an element is
/// what its descendants' frames cover; what the screen had beside its frame, and no more, can be brought into it.
/// Content that is longer than the frame can be brought clear of a TabBar or Toolbar in front of the frame's lower
/// edge. Returns the element whose content moved; null where nothing moves.
Element* dragContent(Element& touched, FingerMove move);

/// Moves the content under the finger in its direction by `SWIPED_SHARE` of what is seen, within `area`, of the element
/// that scrolls; otherwise as `dragContent`.
Element* swipeContent(Element& touched, SwipeDirection direction, const Rect& area);

/// Whether the element's content can be scrolled no further to that end: down or up, or to the sides where it only
/// scrolls to these. False where it does not scroll at all.
bool isScrolledTo(const Element& scroller, ScrollEnd end);

/// The lower edge of all that is in the element; its upper edge where nothing is.
double lowerEdgeOfContent(const Element& parent);

}  // namespace quobrak::simulator
