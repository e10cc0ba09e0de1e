#include "drivers/simulator/Phone.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>

#include "drivers/simulator/ElementAttributes.h"
#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"
#include "drivers/simulator/Scrolling.h"
#include "drivers/simulator/TextInput.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::simulator {

namespace {

/// Shown, but no control: where such an element is disabled, a touch on it still reaches what it is in.
bool isMereContent(ElementType type) {
  return type == ElementType::staticText || type == ElementType::image || type == ElementType::other;
}

bool isFinite(Point point) {
  return std::isfinite(point.x) && std::isfinite(point.y);
}

bool isShownKeyboard(const Element& element) {
  return element.type == ElementType::keyboard && !element.isHidden && hitPoint(element);
}

bool showsKeyboard(const Element& screen) {
  bool isShown = false;
  forEachDescendant(screen, [&isShown](const Element& element) { isShown = isShown || isShownKeyboard(element); });
  return isShown;
}

/// How far down the screen can be seen: to the upper edge of the keyboard where the application shows one.
double upperEdgeOfKeyboard(const Element& screen, double whereNone) {
  double edge = whereNone;
  forEachDescendant(screen, [&edge](const Element& element) {
    if (isShownKeyboard(element)) {
      edge = std::min(edge, element.frame.origin.y);
    }
  });
  return edge;
}

}  // namespace

Phone::Phone(PhoneDescription description, Clock& clock)
    : description_(std::move(description)), clock_(clock), front_(description_.home), volume_(description_.volume) {
  start(description_.applications.at(description_.home));
}

bool Phone::isInstalled(const std::string& bundleIdentifier) const {
  return description_.applications.contains(bundleIdentifier);
}

void Phone::start(const ApplicationDescription& application) {
  const std::string& bundleIdentifier = application.bundleIdentifier;
  RunningApplication running{.description = &application,
                             .processIdentifier = ++lastProcessIdentifier_,
                             .screen = application.screens.at(application.firstScreen)->copy(),
                             .focused = nullptr,
                             .keyboard = nullptr};
  running_.insert_or_assign(bundleIdentifier, std::move(running));
  setFront(bundleIdentifier);
  for (const Rule& rule : application.rules) {
    if (rule.event == RuleEvent::launch && holds(rule)) {
      apply(rule, bundleIdentifier);
    }
  }
}

void Phone::activate(const std::string& bundleIdentifier) {
  if (running_.contains(bundleIdentifier)) {
    setFront(bundleIdentifier);
    return;
  }
  const ApplicationDescription& application = description_.applications.at(bundleIdentifier);
  sleepFor(clock_, application.launchTime);
  start(application);
}

/// What is not in front has no keyboard.
void Phone::setFront(const std::string& bundleIdentifier) {
  const auto before = running_.find(front_);
  if (before != running_.end() && front_ != bundleIdentifier) {
    endEditing(before->second);
  }
  front_ = bundleIdentifier;
  ++revision_;
}

void Phone::launch(const std::string& bundleIdentifier) {
  terminate(bundleIdentifier);
  activate(bundleIdentifier);
}

void Phone::terminate(const std::string& bundleIdentifier) {
  if (bundleIdentifier == description_.home || running_.erase(bundleIdentifier) == 0) {
    return;
  }
  dismissAlertsOf(bundleIdentifier);
  setFront(front_ == bundleIdentifier ? description_.home : front_);
}

const RunningApplication* Phone::running(const std::string& bundleIdentifier) const {
  const auto found = running_.find(bundleIdentifier);
  return found == running_.end() ? nullptr : &found->second;
}

bool Phone::beginTouch(Point point, Seconds duration) {
  sleepFor(clock_, description_.touchDelay);
  sleepFor(clock_, duration);
  return contains({{0, 0}, description_.size}, point);
}

Element* Phone::takerOf(Point point) {
  Element* const taker = elementAt(alert() == nullptr ? *front().screen : *home().screen, point);
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
    tapOnAlert(*touched);
  } else {
    tapOnApplication(*touched);
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
  const Point end{std::clamp(to.x, 0.0, description_.size.width), std::clamp(to.y, 0.0, description_.size.height)};
  endScrolling(touched != nullptr && isFinite(to) &&
               dragContent(*touched, {.dx = end.x - from.x, .dy = end.y - from.y}));
}

void Phone::swipe(const Element& element, SwipeDirection direction) {
  const Size& screen = description_.size;
  const Rect area{{0, 0}, {screen.width, upperEdgeOfKeyboard(*front().screen, screen.height)}};
  const Rect seen = intersection(visiblePart(element), area);
  const std::optional<Point> middle = isEmpty(seen) ? hitPoint(element) : centre(seen);
  if (!middle || !beginTouch(*middle, Seconds::zero())) {
    return;
  }
  Element* const touched = takerOf(*middle);
  endScrolling(touched != nullptr && swipeContent(*touched, direction, area));
}

void Phone::endScrolling(bool hasMoved) {
  if (hasMoved) {
    ++revision_;
  }
  sleepFor(clock_, description_.scrollDelay);
}

void Phone::tapOnAlert(const Element& touched) {
  if (touched.type == ElementType::button && isWithin(touched, *alert()->window)) {
    answerAlert(touched.label);
  }
}

void Phone::answerAlert(const std::string& buttonLabel) {
  const SystemAlert answered = alerts_.back();
  if (!answered.answer.empty()) {
    values_[answered.answer] = buttonLabel;
  }
  alerts_.pop_back();
  home().screen->remove(*answered.window);
  ++revision_;
}

void Phone::dismissAlertsOf(const std::string& bundleIdentifier) {
  std::erase_if(alerts_, [&](const SystemAlert& alert) {
    const bool isOwned = alert.owner == bundleIdentifier;
    if (isOwned) {
      home().screen->remove(*alert.window);
    }
    return isOwned;
  });
}

void Phone::tapOnApplication(Element& touched) {
  if (isOnKeyboard(touched)) {
    tapKey(touched);
  } else if (touched.type != ElementType::keyboard && !behave(touched)) {
    applyTapRules(front(), touched);
  }
}

bool Phone::behave(Element& touched) {
  if (!touched.isEnabled) {
    return false;
  }
  if (takesText(touched.type)) {
    focus(touched);
  } else if (touched.type == ElementType::switchControl) {
    touched.value = touched.value == "1" ? "0" : "1";
    ++revision_;
  } else if (touched.type == ElementType::icon && front_ == description_.home) {
    const auto& applications = description_.applications;
    const auto opened = std::find_if(applications.begin(), applications.end(),
                                     [&touched](const auto& entry) { return entry.second.name == touched.label; });
    if (opened != applications.end()) {
      activate(opened->first);
      return true;
    }
  }
  return false;
}

void Phone::focus(Element& field) {
  RunningApplication& application = front();
  if (application.focused == &field) {
    return;
  }
  endEditing(application);
  application.focused = &field;
  field.hasKeyboardFocus = true;
  if (!showsKeyboard(*application.screen)) {
    application.keyboard = &application.screen->append(keyboardWindow(field, description_.size));
    application.keyboardPlane = KeyboardPlane::letters;
  }
  ++revision_;
}

void Phone::endEditing(RunningApplication& application) {
  if (application.focused != nullptr) {
    application.focused->hasKeyboardFocus = false;
    application.focused = nullptr;
  }
  if (application.keyboard != nullptr) {
    application.screen->remove(*application.keyboard);
    application.keyboard = nullptr;
  }
}

void Phone::tapKey(const Element& key) {
  RunningApplication& application = front();
  if (!key.isEnabled) {
    return;
  }
  // The key may be gone once it has had its effect.
  const Rule* const rule = tapRule(application, key);
  const std::optional<std::string> typed = typedBy(key);
  if (typed == "\n" && application.focused != nullptr) {
    typeReturn(application);
    return;
  }
  if (typed && application.focused != nullptr) {
    typeText(application, *typed);
  }
  const KeyboardPlane plane = planeAfter(key, application.keyboardPlane);
  if (application.keyboard != nullptr && plane != application.keyboardPlane) {
    application.keyboardPlane = plane;
    showPlane(*application.keyboard, plane);
    ++revision_;
  }
  if (rule != nullptr) {
    apply(*rule, application.description->bundleIdentifier);
  }
}

bool Phone::type(const Element& within, std::string_view text) {
  RunningApplication& application = front();
  if (application.focused == nullptr || !isWithin(*application.focused, within)) {
    return false;
  }
  typeText(application, text);
  return true;
}

void Phone::typeText(RunningApplication& application, std::string_view text) {
  constexpr std::string_view CONTROLS = "\b\x7F\r\n";
  constexpr std::string_view CRLF = "\r\n";
  while (!text.empty() && application.focused != nullptr) {
    const std::size_t length = std::min(text.find_first_of(CONTROLS), text.size());
    if (length > 0) {
      insertText(*application.focused, text.substr(0, length));
      text.remove_prefix(length);
    } else if (text.front() == '\b' || text.front() == '\x7F') {
      deleteLastCharacter(*application.focused);
      text.remove_prefix(1);
    } else {
      text.remove_prefix(text.starts_with(CRLF) ? CRLF.size() : 1);
      typeReturn(application);
    }
    ++revision_;
  }
}

/// What an application does on a tap of the return key, it does however the key is pressed.
void Phone::typeReturn(RunningApplication& application) {
  const Element* const key = returnKeyIn(application.keyboard == nullptr ? *application.screen : *application.keyboard);
  const Rule* const rule = key == nullptr || !key->isEnabled ? nullptr : tapRule(application, *key);
  if (holdsLines(application.focused->type)) {
    insertText(*application.focused, "\n");
  } else {
    endEditing(application);
  }
  ++revision_;
  if (rule != nullptr) {
    apply(*rule, application.description->bundleIdentifier);
  }
}

const Rule* Phone::tapRule(const RunningApplication& application, const Element& element) const {
  static const std::function<bool(const Element&)> hittable = isHittable;
  const ElementAttributes attributes(&element, hittable);
  const std::vector<Rule>& rules = application.description->rules;
  const auto found = std::find_if(rules.begin(), rules.end(), [&](const Rule& rule) {
    return rule.event == RuleEvent::tap && rule.element->evaluate(attributes) && holds(rule);
  });
  return found == rules.end() ? nullptr : &*found;
}

void Phone::applyTapRules(const RunningApplication& application, const Element& touched) {
  for (const Element* element = &touched; element != nullptr; element = element->parent()) {
    if (!element->isEnabled) {
      if (isMereContent(element->type)) {
        continue;
      }
      return;
    }
    if (const Rule* const rule = tapRule(application, *element)) {
      apply(*rule, application.description->bundleIdentifier);
      return;
    }
  }
}

bool Phone::holds(const Rule& rule) const {
  return std::all_of(rule.condition.begin(), rule.condition.end(), [this](const auto& wanted) {
    const auto value = values_.find(wanted.first);
    return wanted.second == (value == values_.end() ? "" : value->second);
  });
}

void Phone::apply(const Rule& rule, const std::string& bundleIdentifier) {
  for (const Effect& effect : rule.effects) {
    std::visit([&](const auto& one) { carryOut(one, bundleIdentifier); }, effect);
    // Before the next effect, in which time may pass.
    ++revision_;
  }
}

void Phone::carryOut(const ShowScreen& effect, const std::string& bundleIdentifier) {
  RunningApplication& application = running_.at(bundleIdentifier);
  endEditing(application);
  std::unique_ptr<Element> screen = application.description->screens.at(effect.screen)->copy();
  if (bundleIdentifier == description_.home) {
    // The alerts stay up, whatever the home screen shows behind them.
    for (const SystemAlert& alert : alerts_) {
      screen->append(application.screen->remove(*alert.window));
    }
  }
  application.screen = std::move(screen);
}

void Phone::carryOut(const SetValue& effect, const std::string&) {
  values_[effect.name] = effect.text;
}

void Phone::carryOut(const RaiseAlert& effect, const std::string& bundleIdentifier) {
  const Element& window = home().screen->append(alertWindow(effect.alert, description_.size));
  alerts_.push_back({++lastAlertNumber_, bundleIdentifier, effect.answer, &window});
}

void Phone::carryOut(const OpenApplication& effect, const std::string&) {
  activate(effect.bundleIdentifier);
}

void Phone::pressHome() {
  sleepFor(clock_, description_.buttonDelay);
  setFront(description_.home);
}

void Phone::changeVolume(int steps) {
  // One press moves the volume by a sixteenth.
  constexpr double STEP = 100.0 / 16;
  sleepFor(clock_, description_.buttonDelay);
  volume_ = std::clamp(volume_ + steps * STEP, 0.0, 100.0);
}

std::vector<const Element*> Phone::layers() const {
  std::vector<const Element*> trees{running_.at(front_).screen.get()};
  if (front_ != description_.home) {
    for (const SystemAlert& alert : alerts_) {
      trees.push_back(alert.window);
    }
  }
  return trees;
}

}  // namespace quobrak::simulator
