#include "drivers/simulator/Phone.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Queries.h"
#include "drivers/simulator/Rectangles.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::simulator {

namespace {

bool takesText(ElementType type) {
  return type == ElementType::textField || type == ElementType::secureTextField || type == ElementType::searchField ||
         type == ElementType::textView;
}

/// Shown, but no control: where such an element is disabled, a touch on it still reaches what it is in.
bool isMereContent(ElementType type) {
  return type == ElementType::staticText || type == ElementType::image || type == ElementType::other;
}

void setFocus(Element& application, const Element* focused) {
  forEachDescendant(application, [focused](Element& element) { element.hasKeyboardFocus = &element == focused; });
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
                             .screen = application.screens.at(application.firstScreen)->copy()};
  running_.insert_or_assign(bundleIdentifier, std::move(running));
  front_ = bundleIdentifier;
  ++revision_;
  for (const Rule& rule : application.rules) {
    if (rule.event == RuleEvent::launch && holds(rule)) {
      apply(rule, bundleIdentifier);
    }
  }
}

void Phone::bringToFront(const std::string& bundleIdentifier) {
  if (running_.contains(bundleIdentifier)) {
    front_ = bundleIdentifier;
    ++revision_;
    return;
  }
  const ApplicationDescription& application = description_.applications.at(bundleIdentifier);
  sleepFor(clock_, application.launchTime);
  start(application);
}

void Phone::launch(const std::string& bundleIdentifier) {
  terminate(bundleIdentifier);
  bringToFront(bundleIdentifier);
}

void Phone::terminate(const std::string& bundleIdentifier) {
  if (bundleIdentifier == description_.home || running_.erase(bundleIdentifier) == 0) {
    return;
  }
  dismissAlertsOf(bundleIdentifier);
  if (front_ == bundleIdentifier) {
    front_ = description_.home;
  }
  ++revision_;
}

const RunningApplication* Phone::running(const std::string& bundleIdentifier) const {
  const auto found = running_.find(bundleIdentifier);
  return found == running_.end() ? nullptr : &found->second;
}

void Phone::touch(Point point, Seconds duration) {
  sleepFor(clock_, description_.touchDelay);
  sleepFor(clock_, duration);
  if (!contains({{0, 0}, description_.size}, point)) {
    return;
  }
  if (alert() != nullptr) {
    touchAlert(point);
  } else {
    touchFront(point);
  }
}

void Phone::touchAlert(Point point) {
  const Element* const touched = elementAt(*home().screen, point);
  if (touched != nullptr && touched->type == ElementType::button && isWithin(*touched, *alert()->window)) {
    answerAlert(touched->label);
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

void Phone::touchFront(Point point) {
  RunningApplication& application = running_.at(front_);
  Element* const touched = elementAt(*application.screen, point);
  if (touched != nullptr && !behave(*touched)) {
    applyTapRules(application, *touched);
  }
}

bool Phone::behave(Element& touched) {
  if (!touched.isEnabled) {
    return false;
  }
  if (takesText(touched.type)) {
    setFocus(*running_.at(front_).screen, &touched);
    ++revision_;
  } else if (touched.type == ElementType::switchControl) {
    touched.value = touched.value == "1" ? "0" : "1";
    ++revision_;
  } else if (touched.type == ElementType::icon && front_ == description_.home) {
    const auto& applications = description_.applications;
    const auto opened = std::find_if(applications.begin(), applications.end(),
                                     [&touched](const auto& entry) { return entry.second.name == touched.label; });
    if (opened != applications.end()) {
      bringToFront(opened->first);
      return true;
    }
  }
  return false;
}

void Phone::applyTapRules(const RunningApplication& application, const Element& touched) {
  static const std::function<bool(const Element&)> hittable = isHittable;
  for (const Element* element = &touched; element != nullptr; element = element->parent()) {
    if (!element->isEnabled) {
      if (isMereContent(element->type)) {
        continue;
      }
      return;
    }
    const ElementAttributes attributes(element, hittable);
    for (const Rule& rule : application.description->rules) {
      if (rule.event == RuleEvent::tap && rule.element->evaluate(attributes) && holds(rule)) {
        apply(rule, application.description->bundleIdentifier);
        return;
      }
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
  }
  ++revision_;
}

void Phone::carryOut(const ShowScreen& effect, const std::string& bundleIdentifier) {
  RunningApplication& application = running_.at(bundleIdentifier);
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
  bringToFront(effect.bundleIdentifier);
}

bool Phone::type(const Element& within, std::string_view text) {
  Element* focused = nullptr;
  forEachDescendant(*running_.at(front_).screen, [&](Element& element) {
    if (element.hasKeyboardFocus && isWithin(element, within)) {
      focused = &element;
    }
  });
  if (focused == nullptr) {
    return false;
  }
  focused->value = focused->value.value_or("").append(text);
  ++revision_;
  return true;
}

void Phone::pressHome() {
  sleepFor(clock_, description_.buttonDelay);
  front_ = description_.home;
  ++revision_;
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
