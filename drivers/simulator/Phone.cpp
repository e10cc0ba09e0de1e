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

void setFocus(Element& application, const Element* focused) {
  forEachDescendant(application, [focused](Element& element) { element.hasKeyboardFocus = &element == focused; });
}

}  // namespace

/// Carries out one effect of a rule of an application.
struct Phone::EffectApplication {
  Phone& phone;
  const std::string& bundleIdentifier;

  void operator()(const ShowScreen& effect) const {
    RunningApplication& application = phone.running_.at(bundleIdentifier);
    std::unique_ptr<Element> screen = application.description->screens.at(effect.screen)->copy();
    if (&application == &phone.home()) {
      // The alerts stay up, whatever the home screen shows behind them.
      for (const SystemAlert& alert : phone.alerts_) {
        screen->append(application.screen->remove(*alert.window));
      }
    }
    application.screen = std::move(screen);
  }

  void operator()(const SetValue& effect) const { phone.values_[effect.name] = effect.text; }

  void operator()(const RaiseAlert& effect) const {
    const Element& window = phone.home().screen->append(alertWindow(effect.alert, phone.description_.size));
    phone.alerts_.push_back({++phone.lastAlertNumber_, bundleIdentifier, effect.answer, &window});
  }

  void operator()(const OpenApplication& effect) const { phone.bringToFront(effect.bundleIdentifier); }
};

Phone::Phone(PhoneDescription description, Clock& clock)
    : description_(std::move(description)), clock_(clock), front_(description_.home), volume_(description_.volume) {
  start(description_.applications.at(description_.home));
}

bool Phone::isInstalled(const std::string& bundleIdentifier) const {
  return description_.applications.contains(bundleIdentifier);
}

RunningApplication& Phone::start(const ApplicationDescription& application) {
  RunningApplication running{.description = &application,
                             .processIdentifier = ++lastProcessIdentifier_,
                             .screen = application.screens.at(application.firstScreen)->copy()};
  return running_.insert_or_assign(application.bundleIdentifier, std::move(running)).first->second;
}

void Phone::bringToFront(const std::string& bundleIdentifier) {
  const ApplicationDescription& application = description_.applications.at(bundleIdentifier);
  const bool starts = !running_.contains(bundleIdentifier);
  if (starts) {
    sleepFor(clock_, application.launchTime);
    start(application);
  }
  front_ = bundleIdentifier;
  ++revision_;
  if (starts) {
    for (const Rule& rule : application.rules) {
      if (rule.event == RuleEvent::launch && holds(rule)) {
        apply(rule, bundleIdentifier);
      }
    }
  }
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
  if (touched == nullptr || !touched->isEnabled) {
    return;
  }
  if (!behave(*touched)) {
    applyTapRules(application, *touched);
  }
}

bool Phone::behave(Element& touched) {
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
  // What is disabled takes the touch and does nothing, also where the touch is on something in it.
  for (const Element* element = &touched; element != nullptr && element->isEnabled; element = element->parent()) {
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
    std::visit(EffectApplication{*this, bundleIdentifier}, effect);
  }
  ++revision_;
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
