#pragma once

#include <optional>

#include "drivers/simulator/Element.h"
#include "platform/uiautomation/Geometry.h"

namespace quobrak::simulator {

/// The element of the tree that takes a touch at the point: the front-most one there that is not a mere container,
/// within the screen (the frame of `root`) and all that clips it. Null where the touch falls through.
const Element* elementAt(const Element& root, Point point);
Element* elementAt(Element& root, Point point);

/// Whether a touch in the element's region lands on the element; it falls through what is hidden, and through
/// containers that nobody has named.
bool takesTouches(const Element& element);

/// Where on the screen the element is touched, if touches reach no farther than `clip`.
Rect touchedRegion(const Element& element, const Rect& clip, const Rect& screen);

/// Where touches reach the element's children, if they reach the element within `clip`.
Rect clipOfChildren(const Element& element, const Rect& clip);

/// The element's part that is within the screen and all that clips it; of no extent where no part is.
Rect visiblePart(const Element& element);

/// Where a touch on the element is meant to land: the middle of its visible part. None where no part is visible.
std::optional<Point> hitPoint(const Element& element);

/// Whether something that lies in front of the element, save what is inside it, takes a touch at its hit point. False
/// where it has none.
bool isCovered(const Element& element);

/// Whether the element is not hidden, has a hit point and nothing that lies in front of it, save what is inside it,
/// takes a touch there.
bool isHittable(const Element& element);

}  // namespace quobrak::simulator
