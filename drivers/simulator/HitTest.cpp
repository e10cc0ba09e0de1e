#include "drivers/simulator/HitTest.h"

#include <utility>

#include "drivers/simulator/Rectangles.h"

namespace quobrak::simulator {

namespace {

/// Keeps the front-most element at the point while it walks a tree. What comes later in the document lies in front.
struct FrontMost {
  Point point;
  Rect screen;
  /// The walk counts from this element on; what comes before it lies behind it.
  const Element* from;
  const Element* found = nullptr;

  void visit(const Element& element, const Rect& clip) {
    if (&element == from) {
      found = nullptr;
    }
    if (takesTouches(element) && contains(touchedRegion(element, clip, screen), point)) {
      found = &element;
    }
    const Rect childClip = clipOfChildren(element, clip);
    for (const auto& child : element.children()) {
      visit(*child, childClip);
    }
  }
};

const Element* frontMostAt(const Element& root, Point point, const Element& from) {
  FrontMost frontMost{.point = point, .screen = root.frame, .from = &from};
  frontMost.visit(root, root.frame);
  return frontMost.found;
}

}  // namespace

bool takesTouches(const Element& element) {
  if (element.isHidden) {
    return false;
  }
  switch (element.type) {
    case ElementType::application:
    case ElementType::window:
    case ElementType::group:
      return false;
    case ElementType::any:
    case ElementType::other:
      return !element.label.empty();
    default:
      return true;
  }
}

Rect touchedRegion(const Element& element, const Rect& clip, const Rect& screen) {
  const bool isEverywhere = isModal(element.type) && !isEmpty(element.frame);
  return isEverywhere ? screen : intersection(element.frame, clip);
}

Rect clipOfChildren(const Element& element, const Rect& clip) {
  return clipsItsChildren(element.type) ? intersection(element.frame, clip) : clip;
}

const Element* elementAt(const Element& root, Point point) {
  return contains(root.frame, point) ? frontMostAt(root, point, root) : nullptr;
}

Element* elementAt(Element& root, Point point) {
  // The tree was given to be changed, and the element belongs to it.
  return const_cast<Element*>(elementAt(std::as_const(root), point));
}

Rect visiblePart(const Element& element) {
  Rect visible = element.frame;
  for (const Element* ancestor = element.parent(); ancestor != nullptr; ancestor = ancestor->parent()) {
    if (clipsItsChildren(ancestor->type)) {
      visible = intersection(visible, ancestor->frame);
    }
  }
  return visible;
}

std::optional<Point> hitPoint(const Element& element) {
  const Rect visible = visiblePart(element);
  return isEmpty(visible) ? std::nullopt : std::optional(centre(visible));
}

bool isCovered(const Element& element) {
  const std::optional<Point> point = hitPoint(element);
  if (!point) {
    return false;
  }
  const Element* const touched = frontMostAt(rootOf(element), *point, element);
  return touched != nullptr && !isWithin(*touched, element);
}

bool isHittable(const Element& element) {
  return !element.isHidden && hitPoint(element) && !isCovered(element);
}

}  // namespace quobrak::simulator
