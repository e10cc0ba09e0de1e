#include "drivers/simulator/Phone.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"
#include "drivers/simulator/Scrolling.h"
#include "drivers/simulator/TextInput.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

namespace {

bool isFinite(Point point) {
  return std::isfinite(point.x) && std::isfinite(point.y);
}

/// How a finger has to rest on an element for a long press, as on the phone.
constexpr Seconds LONG_PRESS(0.5);

}  // namespace

Phone::Phone(PhoneDescription description, Clock& clock)
    : applications_(std::move(description), clock), volume_(this->description().volume) {}

bool Phone::beginTouch(Point point, Seconds duration) {
  applications_.sleep(description().touchDelay);
  applications_.sleep(duration);
  return contains({{0, 0}, description().size}, point);
}

Element* Phone::takerOf(Point point) {
  Element* const taker =
      elementAt(alert() == nullptr ? *applications_.front().screen : *applications_.home().screen, point);
  if (taker != nullptr && observer_) {
    observer_(*taker, point);
  }
  return taker;
}

void Phone::touch(Point point, Seconds duration) {
  if (!beginTouch(point, duration)) {
    return;
  }
  Element* const touched = takerOf(point);
  if (touched == nullptr) {
    return;
  }
  if (alert() != nullptr) {
    touchAlert(*touched);
  } else {
    touchApplication(*touched, duration);
  }
}

void Phone::drag(Point from, Seconds hold, Point to) {
  if (from == to) {
    touch(from, hold);
    return;
  }
  if (!beginTouch(from, hold)) {
    return;
  }
  Element* const touched = takerOf(from);
  const Point end{std::clamp(to.x, 0.0, description().size.width), std::clamp(to.y, 0.0, description().size.height)};
  endScrolling(touched == nullptr || !isFinite(to)
                   ? nullptr
                   : dragContent(*touched, {.dx = end.x - from.x, .dy = end.y - from.y}));
}

void Phone::swipe(const Element& element, SwipeDirection direction) {
  const Size& screen = description().size;
  const Rect area{{0, 0}, {screen.width, upperEdgeOfKeyboard(*applications_.front().screen, screen.height)}};
  const Rect seen = intersection(visiblePart(element), area);
  const std::optional<Point> middle = isEmpty(seen) ? hitPoint(element) : centre(seen);
  if (!middle || !beginTouch(*middle, Seconds::zero())) {
    return;
  }
  Element* const touched = takerOf(*middle);
  endScrolling(touched == nullptr ? nullptr : swipeContent(*touched, direction, area));
}

void Phone::endScrolling(const Element* scroller) {
  if (scroller != nullptr) {
    applications_.noteChange();
    applications_.reactToScrolling(*scroller);
  }
  applications_.sleep(description().scrollDelay);
}

void Phone::touchAlert(const Element& touched) {
  if (touched.type == ElementType::button && isWithin(touched, *alert()->window)) {
    applications_.answerAlert(touched);
  }
}

void Phone::touchApplication(Element& touched, Seconds duration) {
  const bool isLong = duration >= LONG_PRESS && !isOnKeyboard(touched);
  const Reaction reaction = isLong ? applications_.reactionToTouch(RuleEvent::longPress, touched) : Reaction();
  if (reaction.rule == nullptr) {
    tapOnApplication(touched);
  } else {
    applications_.carryOut(reaction, applications_.frontIdentifier());
  }
}

void Phone::tapOnApplication(Element& touched) {
  if (isOnKeyboard(touched)) {
    tapKey(touched);
  } else if (touched.type != ElementType::keyboard && !behave(touched) && !applications_.answerOwnAlert(touched)) {
    applications_.carryOut(applications_.reactionToTouch(RuleEvent::tap, touched), applications_.frontIdentifier());
  }
}

bool Phone::behave(Element& touched) {
  if (!touched.isEnabled) {
    return false;
  }
  if (takesText(touched.type) && applications_.front().focused != &touched) {
    applications_.front().beginEditing(touched, description().size);
    applications_.noteChange();
  } else if (touched.type == ElementType::switchControl) {
    touched.value = touched.value == "1" ? "0" : "1";
    applications_.noteChange();
  } else if (touched.type == ElementType::icon && applications_.frontIdentifier() == description().home) {
    return openFromIcon(touched.label);
  }
  return false;
}

bool Phone::openFromIcon(const std::string& label) {
  const auto& applications = description().applications;
  const auto opened = std::find_if(applications.begin(), applications.end(),
                                   [&label](const auto& entry) { return entry.second.name == label; });
  if (opened == applications.end()) {
    return false;
  }
  activate(opened->first);
  return true;
}

void Phone::tapKey(const Element& key) {
  if (!key.isEnabled) {
    return;
  }
  const std::string bundleIdentifier = applications_.frontIdentifier();
  // The key may be gone once it has had its effect.
  const Reaction reaction = applications_.reactionTo(RuleEvent::tap, key);
  const std::optional<std::string> typed = typedBy(key);
  const KeyboardPlane plane = planeAfter(key, applications_.front().keyboardPlane);
  if (typed == "\n" && applications_.front().focused != nullptr) {
    typeReturn();
    return;
  }
  if (typed && applications_.front().focused != nullptr) {
    typeText(*typed);
  }
  RunningApplication* const application = applications_.running(bundleIdentifier);
  if (application != nullptr && application->keyboard != nullptr && plane != application->keyboardPlane) {
    application->keyboardPlane = plane;
    showPlane(*application->keyboard, plane);
    applications_.noteChange();
  }
  applications_.carryOut(reaction, bundleIdentifier);
}

bool Phone::type(const Element& within, std::string_view text) {
  const Element* const focused = applications_.front().focused;
  if (focused == nullptr || !isWithin(*focused, within)) {
    return false;
  }
  typeText(text);
  return true;
}

/// Character by character, since rules about the text see each of them.
void Phone::typeText(std::string_view text) {
  const std::string bundleIdentifier = applications_.frontIdentifier();
  for (const std::string_view character : characters(text)) {
    if (applications_.frontIdentifier() != bundleIdentifier || applications_.front().focused == nullptr) {
      return;
    }
    if (character == "\n" || character == "\r" || character == "\r\n") {
      typeReturn();
      continue;
    }
    Element& field = *applications_.front().focused;
    if (character == "\b" || character == "\x7F") {
      deleteLastCharacter(field);
    } else {
      insertText(field, character);
    }
    applications_.noteChange();
    applications_.carryOut(applications_.reactionTo(RuleEvent::text, field), bundleIdentifier);
  }
}

/// What an application does on a tap of the return key, it does however the key is pressed.
void Phone::typeReturn() {
  RunningApplication& application = applications_.front();
  const Element* const key = returnKeyIn(application.keyboard == nullptr ? *application.screen : *application.keyboard);
  const Reaction toKey =
      key == nullptr || !key->isEnabled ? Reaction() : applications_.reactionTo(RuleEvent::tap, *key);
  Reaction toText;
  if (holdsLines(application.focused->type)) {
    insertText(*application.focused, "\n");
    toText = applications_.reactionTo(RuleEvent::text, *application.focused);
  } else {
    application.endEditing();
  }
  applications_.noteChange();
  const std::string bundleIdentifier = applications_.frontIdentifier();
  applications_.carryOut(toText, bundleIdentifier);
  applications_.carryOut(toKey, bundleIdentifier);
}

void Phone::pressHome() {
  applications_.sleep(description().buttonDelay);
  applications_.setFront(description().home);
}

void Phone::changeVolume(int steps) {
  // One press moves the volume by a sixteenth.
  constexpr double STEP = 100.0 / 16;
  applications_.sleep(description().buttonDelay);
  volume_ = std::clamp(volume_ + steps * STEP, 0.0, 100.0);
}

}  // namespace quobrak::simulator
