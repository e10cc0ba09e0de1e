#include "host/phone/Reach.h"

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"
#include "host/phone/ElementWords.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

using simulator::Element;

namespace {

/// The innermost element around, all of whose content is seen in it alone, that nothing of the element is seen in.
const Element& clipper(const Element& element) {
  Rect visible = element.frame;
  const Element* around = element.parent();
  for (; around != nullptr; around = around->parent()) {
    if (simulator::clipsItsChildren(around->type)) {
      visible = simulator::intersection(visible, around->frame);
      if (simulator::isEmpty(visible)) {
        return *around;
      }
    }
  }
  return simulator::rootOf(element);
}

std::string whereOutside(const Element& element) {
  const Element& around = clipper(element);
  return around.parent() == nullptr ? "it lies outside the screen"
                                    : "it lies outside what is seen of " + nameOf(around);
}

std::string whatCovers(const Element& element) {
  const Point point = simulator::hitPoint(element).value();
  const Element* const cover = simulator::elementAt(simulator::rootOf(element), point);
  return cover == nullptr ? "it is covered"
                          : nameOf(*cover) + " covers it at " + inPoints(point.x) + ", " + inPoints(point.y);
}

/// What takes a tap on an element that can be hit.
std::string takerOf(const Element& element) {
  const Point point = simulator::hitPoint(element).value();
  const Element* const taker = simulator::elementAt(simulator::rootOf(element), point);
  if (taker == nullptr) {
    return "nothing: neither it nor what is in it takes touches there";
  }
  return taker == &element ? "it" : nameOf(*taker) + " in it";
}

bool isBehindSystemAlert(const Element& element, const ShownScreen& screen) {
  const Element* const alert = screen.systemAlert();
  return alert != nullptr && !simulator::isWithin(element, *alert);
}

}  // namespace

Obstacle obstacleTo(const Element& element, const ShownScreen& screen) {
  if (screen.isHittable(element)) {
    return Obstacle::none;
  }
  if (element.isHidden) {
    return Obstacle::hidden;
  }
  if (simulator::isEmpty(element.frame)) {
    return Obstacle::withoutExtent;
  }
  if (!simulator::hitPoint(element)) {
    return Obstacle::outside;
  }
  return simulator::isCovered(element) ? Obstacle::covered : Obstacle::behind;
}

std::string remarkOn(Obstacle obstacle) {
  switch (obstacle) {
    case Obstacle::none:
      return "";
    case Obstacle::hidden:
      return "invisible";
    case Obstacle::withoutExtent:
      return "no extent";
    case Obstacle::outside:
      return "outside";
    case Obstacle::covered:
      return "covered";
    case Obstacle::behind:
      return "behind";
  }
  return "";
}

std::string fateOfTap(const Element& element, const ShownScreen& screen) {
  switch (obstacleTo(element, screen)) {
    case Obstacle::none:
      return "a tap lands on " + takerOf(element) +
             (isBehindSystemAlert(element, screen) ? ", once the system alert has been answered" : "");
    case Obstacle::hidden:
      return "not hittable: it is invisible, for no reason that can be seen";
    case Obstacle::withoutExtent:
      return "not hittable: it has no extent";
    case Obstacle::outside:
      return "not hittable: " + whereOutside(element);
    case Obstacle::covered:
      return "not hittable: " + whatCovers(element);
    case Obstacle::behind:
      return "not hittable: the application " + shown(screen.frontIdentifier()) + " is in front";
  }
  return "";
}

}  // namespace quobrak::host
