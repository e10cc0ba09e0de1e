#include "phoneserver/GestureRoutes.h"

#include <optional>
#include <string>
#include <utility>

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"
#include "phoneserver/PointerActions.h"
#include "phoneserver/Targets.h"
#include "phoneserver/WireError.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::phoneserver {

using simulator::Element;

namespace {

constexpr std::string_view X = "x";
constexpr std::string_view Y = "y";

/// A touch where the element can be met. One that cannot be met anywhere is not touched, and that is no error: phones
/// do not tell whether a touch has landed.
void touch(ServedPhone& served, const Element& element, Seconds duration) {
  if (const std::optional<Point> point = simulator::hitPoint(element)) {
    served.phone().touch(*point, duration);
  }
}

/// A place within the element, counted from its top-left corner.
Point placeIn(const Element& element, Point offset) {
  if (simulator::isEmpty(element.frame)) {
    throw WireError(WireErrorCode::invalidArgument, "the element has no extent, so that no place in it can be touched");
  }
  return {element.frame.origin.x + offset.x, element.frame.origin.y + offset.y};
}

void touchTarget(ServedPhone& served, const Call& call, Seconds duration) {
  const Element& element = targetElement(served, call);
  if (const std::optional<Point> offset = call.arguments.optionalPoint(X, Y)) {
    served.phone().touch(placeIn(element, *offset), duration);
  } else {
    touch(served, element, duration);
  }
}

JSONValue click(ServedPhone& served, const Call& call) {
  touch(served, targetElement(served, call), Seconds::zero());
  return {};
}

JSONValue tapElement(ServedPhone& served, const Call& call) {
  touchTarget(served, call, Seconds::zero());
  return {};
}

JSONValue tapScreen(ServedPhone& served, const Call& call) {
  served.phone().touch(call.arguments.point(X, Y), Seconds::zero());
  return {};
}

JSONValue holdElement(ServedPhone& served, const Call& call) {
  touchTarget(served, call, call.arguments.duration("duration"));
  return {};
}

JSONValue holdScreen(ServedPhone& served, const Call& call) {
  served.phone().touch(call.arguments.point(X, Y), call.arguments.duration("duration"));
  return {};
}

JSONValue doubleTapElement(ServedPhone& served, const Call& call) {
  touchTarget(served, call, Seconds::zero());
  // The first touch may have taken the element away.
  const std::optional<std::uint64_t> number = served.session()->elements.numberOf(call.parameter("element"));
  if (number && served.elementNumbered(*number) != nullptr) {
    touchTarget(served, call, Seconds::zero());
  }
  return {};
}

JSONValue doubleTapScreen(ServedPhone& served, const Call& call) {
  tapScreen(served, call);
  return tapScreen(served, call);
}

/// Where a drag begins and ends, on the screen.
struct Way {
  Point from;
  Point to;
};

Way wayIn(const Call& call) {
  return {call.arguments.point("fromX", "fromY"), call.arguments.point("toX", "toY")};
}

JSONValue dragOnScreen(ServedPhone& served, const Call& call) {
  const Way way = wayIn(call);
  served.phone().drag(way.from, call.arguments.duration("duration"), way.to);
  return {};
}

JSONValue dragInElement(ServedPhone& served, const Call& call) {
  const Element& element = targetElement(served, call);
  const Way way = wayIn(call);
  served.phone().drag(placeIn(element, way.from), call.arguments.duration("duration"), placeIn(element, way.to));
  return {};
}

/// The phone moves at a speed of its own.
JSONValue dragWithVelocityOnScreen(ServedPhone& served, const Call& call) {
  const Way way = wayIn(call);
  served.phone().drag(way.from, call.arguments.duration("pressDuration"), way.to);
  sleepFor(served.clock(), Seconds(call.arguments.optionalNumber("holdDuration").value_or(0)));
  return {};
}

/// Of what can be met of the element or, where nothing can, of all of it.
Point middleOf(const Element& element) {
  return simulator::hitPoint(element).value_or(simulator::centre(element.frame));
}

JSONValue dragWithVelocityToElement(ServedPhone& served, const Call& call) {
  const Element& from = targetElement(served, call);
  const Element& to = requiredElement(served, call.arguments.text("toElement"));
  served.phone().drag(middleOf(from), call.arguments.duration("pressDuration"), middleOf(to));
  sleepFor(served.clock(), Seconds(call.arguments.optionalNumber("holdDuration").value_or(0)));
  return {};
}

SwipeDirection directionIn(const Call& call) {
  const std::string name = call.arguments.text("direction");
  for (const auto& [known, direction] :
       {std::pair("up", SwipeDirection::up), std::pair("down", SwipeDirection::down),
        std::pair("left", SwipeDirection::left), std::pair("right", SwipeDirection::right)}) {
    if (name == known) {
      return direction;
    }
  }
  throw WireError(WireErrorCode::invalidArgument, "\"direction\" must be up, down, left or right, not " + name);
}

JSONValue swipeScreen(ServedPhone& served, const Call& call) {
  served.phone().swipe(served.activeScreen(), directionIn(call));
  return {};
}

JSONValue swipeElement(ServedPhone& served, const Call& call) {
  const Element& element = targetElement(served, call);
  served.phone().swipe(element, directionIn(call));
  return {};
}

/// Content is scrolled to one side by a swipe to the other.
SwipeDirection opposite(SwipeDirection direction) {
  switch (direction) {
    case SwipeDirection::up:
      return SwipeDirection::down;
    case SwipeDirection::down:
      return SwipeDirection::up;
    case SwipeDirection::left:
      return SwipeDirection::right;
    case SwipeDirection::right:
      return SwipeDirection::left;
  }
  return direction;
}

JSONValue scrollElement(ServedPhone& served, const Call& call) {
  const Element& element = targetElement(served, call);
  if (!call.arguments.has("direction")) {
    throw WireError(WireErrorCode::unsupportedOperation, "this phone scrolls in a \"direction\" and in no other way");
  }
  served.phone().swipe(element, opposite(directionIn(call)));
  return {};
}

JSONValue perform(ServedPhone& served, const Call& call) {
  performActions(served, call.arguments);
  return {};
}

/// Fingers and keys never stay down after a request.
JSONValue release(ServedPhone&, const Call&) {
  return {};
}

constexpr Route ROUTES[] = {
    {"POST", "/element/:element/click", SessionNeed::session, click},
    {"POST", "/wda/tap", SessionNeed::session, tapScreen},
    {"POST", "/wda/element/:element/tap", SessionNeed::session, tapElement},
    {"POST", "/wda/touchAndHold", SessionNeed::session, holdScreen},
    {"POST", "/wda/element/:element/touchAndHold", SessionNeed::session, holdElement},
    {"POST", "/wda/doubleTap", SessionNeed::session, doubleTapScreen},
    {"POST", "/wda/element/:element/doubleTap", SessionNeed::session, doubleTapElement},
    {"POST", "/wda/dragfromtoforduration", SessionNeed::session, dragOnScreen},
    {"POST", "/wda/element/:element/dragfromtoforduration", SessionNeed::session, dragInElement},
    {"POST", "/wda/pressAndDragWithVelocity", SessionNeed::session, dragWithVelocityOnScreen},
    {"POST", "/wda/element/:element/pressAndDragWithVelocity", SessionNeed::session, dragWithVelocityToElement},
    {"POST", "/wda/swipe", SessionNeed::session, swipeScreen},
    {"POST", "/wda/element/:element/swipe", SessionNeed::session, swipeElement},
    {"POST", "/wda/element/:element/scroll", SessionNeed::session, scrollElement},
    {"POST", "/actions", SessionNeed::session, perform},
    {"DELETE", "/actions", SessionNeed::session, release},
};

}  // namespace

std::span<const Route> gestureRoutes() {
  return ROUTES;
}

}  // namespace quobrak::phoneserver
