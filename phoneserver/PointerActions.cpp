#include "phoneserver/PointerActions.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "drivers/simulator/Rectangles.h"
#include "phoneserver/Targets.h"
#include "phoneserver/WireError.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::phoneserver {

namespace {

constexpr double MILLISECONDS_IN_A_SECOND = 1000;
/// By which clients name an element.
constexpr std::string_view ELEMENT_KEY = "element-6066-11e4-a52e-4f735466cecf";

struct Pause {};
struct FingerDown {};
struct FingerUp {};
struct Typing {
  std::string text;
};
/// Where a move leads, from the screen's corner, from where the finger is, or from the middle of an element.
struct FromScreen {};
struct FromFinger {};
struct FromElement {
  std::string id;
};
using Origin = std::variant<FromScreen, FromFinger, FromElement>;
struct FingerMove {
  Origin origin;
  Point offset;
};
struct Action {
  std::variant<Pause, FingerDown, FingerUp, FingerMove, Typing> what;
  Seconds duration{};
};
using Actions = std::vector<Action>;

[[noreturn]] void fail(const std::string& reason) {
  throw WireError(WireErrorCode::unknownError, reason);
}

Arguments objectIn(const JSONValue& value, const std::string& what) {
  const auto* const members = std::get_if<JSONValue::Object>(&value.variant());
  if (members == nullptr) {
    fail(what + " must be an object");
  }
  return Arguments(*members);
}

JSONValue::Array listIn(const Arguments& arguments, std::string_view key) {
  std::optional<JSONValue::Array> list = arguments.optionalArray(key);
  if (!list) {
    fail("\"" + std::string(key) + "\" is missing; it must be a list");
  }
  return *std::move(list);
}

Seconds durationIn(const Arguments& action) {
  const double milliseconds = action.optionalNumber("duration").value_or(0);
  if (milliseconds < 0) {
    fail("\"duration\" must be a number of milliseconds, 0 or more");
  }
  return Seconds(milliseconds / MILLISECONDS_IN_A_SECOND);
}

Origin originIn(const Arguments& action) {
  const auto origin = action.members().find("origin");
  if (origin == action.members().end() || origin->second == JSONValue("viewport")) {
    return FromScreen{};
  }
  if (origin->second == JSONValue("pointer")) {
    return FromFinger{};
  }
  const Arguments element = objectIn(origin->second, "\"origin\", where it is neither viewport nor pointer,");
  return FromElement{element.text(element.has(ELEMENT_KEY) ? ELEMENT_KEY : "ELEMENT")};
}

Action pauseIn(const Arguments& action) {
  const Seconds duration = durationIn(action);
  if (duration == Seconds::zero()) {
    fail("a pause must be longer than 0 milliseconds");
  }
  return {Pause{}, duration};
}

Action fingerAction(const Arguments& action) {
  const std::string type = action.text("type");
  if (type == "pause") {
    return pauseIn(action);
  }
  if (type == "pointerDown") {
    return {FingerDown{}};
  }
  if (type == "pointerUp") {
    return {FingerUp{}};
  }
  if (type == "pointerMove") {
    return {FingerMove{originIn(action), action.point("x", "y")}, durationIn(action)};
  }
  fail("a pointer does pause, pointerDown, pointerUp and pointerMove, but not " + type);
}

Action keyAction(const Arguments& action) {
  const std::string type = action.text("type");
  if (type == "pause") {
    return pauseIn(action);
  }
  if (type == "keyDown") {
    return {Typing{action.text("value")}};
  }
  if (type == "keyUp") {
    return {Pause{}};
  }
  fail("a keyboard does pause, keyDown and keyUp, but not " + type);
}

template <class Read>
Actions actionsIn(const Arguments& source, const Read& read) {
  Actions actions;
  for (const JSONValue& action : listIn(source, "actions")) {
    actions.push_back(read(objectIn(action, "an action")));
  }
  return actions;
}

void requireTouch(const Arguments& source) {
  const Arguments parameters(source.optionalObject("parameters").value_or(JSONValue::Object()));
  const std::string kind = parameters.optionalText("pointerType").value_or("mouse");
  if (kind != "touch") {
    fail("the pointerType must be touch, not " + kind);
  }
}

std::vector<Actions> sourcesIn(const Arguments& arguments) {
  std::vector<Actions> sources;
  std::size_t fingers = 0;
  for (const JSONValue& value : listIn(arguments, "actions")) {
    const Arguments source = objectIn(value, "an input source");
    const std::string type = source.text("type");
    if (type == "pointer") {
      requireTouch(source);
      ++fingers;
      sources.push_back(actionsIn(source, fingerAction));
    } else if (type == "key") {
      sources.push_back(actionsIn(source, keyAction));
    } else {
      fail("an input source is of type pointer or key, not " + type);
    }
  }
  if (fingers > 1) {
    fail("this phone knows one finger, so that one pointer can act");
  }
  return sources;
}

/// The finger of one request.
class Finger {
 public:
  explicit Finger(ServedPhone& served) : served_(served) {}

  void begin(const Pause&) {}
  void begin(const FingerDown&) {
    if (!contact_) {
      contact_ = Contact{.from = place_};
    }
  }
  void begin(const FingerUp&) {
    if (const std::optional<Contact> ended = std::exchange(contact_, std::nullopt)) {
      if (ended->hasMoved) {
        served_.phone().drag(ended->from, ended->held, place_);
      } else {
        served_.phone().touch(ended->from, ended->held);
      }
    }
  }
  void begin(const FingerMove& move) {
    const Point origin = std::visit([this](const auto& from) { return pointOf(from); }, move.origin);
    const Point target{origin.x + move.offset.x, origin.y + move.offset.y};
    if (contact_ && target != place_) {
      contact_->hasMoved = true;
    }
    place_ = target;
  }
  void begin(const Typing& typing) {
    if (!served_.phone().type(*served_.phone().layers().front(), typing.text)) {
      fail("no element has the keyboard's focus");
    }
  }

  /// What the tick takes. The phone itself lets the time of a touch pass.
  void pass(Seconds duration) {
    if (!contact_) {
      sleepFor(served_.clock(), duration);
    } else if (!contact_->hasMoved) {
      contact_->held += duration;
    }
  }

 private:
  struct Contact {
    Point from;
    /// Before it first moved.
    Seconds held{};
    bool hasMoved = false;
  };

  Point pointOf(const FromScreen&) const { return {}; }
  Point pointOf(const FromFinger&) const { return place_; }
  Point pointOf(const FromElement& from) const { return simulator::centre(requiredElement(served_, from.id).frame); }

  ServedPhone& served_;
  Point place_;
  std::optional<Contact> contact_;
};

}  // namespace

void performActions(ServedPhone& served, const Arguments& arguments) {
  const std::vector<Actions> sources = sourcesIn(arguments);
  Finger finger(served);
  std::size_t ticks = 0;
  for (const Actions& actions : sources) {
    ticks = std::max(ticks, actions.size());
  }
  for (std::size_t tick = 0; tick < ticks; ++tick) {
    Seconds duration{};
    for (const Actions& actions : sources) {
      if (tick < actions.size()) {
        std::visit([&finger](const auto& action) { finger.begin(action); }, actions[tick].what);
        duration = std::max(duration, actions[tick].duration);
      }
    }
    finger.pass(duration);
  }
}

}  // namespace quobrak::phoneserver
