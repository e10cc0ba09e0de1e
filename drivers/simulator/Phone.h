#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/PhoneDescription.h"
#include "platform/foundation/Clock.h"

namespace quobrak::simulator {

/// An application that runs.
struct RunningApplication {
  const ApplicationDescription* description;
  int processIdentifier;
  /// The screen that it shows: an Application and all below it.
  std::unique_ptr<Element> screen;
};

/// An alert of the system process that is up.
struct SystemAlert {
  std::uint64_t number;
  /// The application on whose behalf it was raised.
  std::string owner;
  std::string answer;
  /// The window that holds the alert, within the home application's screen.
  const Element* window;

  const Element& alert() const { return *window->children().front(); }
};

/// A phone that is switched on: what runs, what is on the screen, and what a finger or a button does to it. Time passes
/// on the clock that it is given.
class Phone {
 public:
  /// `clock` must outlive the phone.
  Phone(PhoneDescription description, Clock& clock);

  const PhoneDescription& description() const { return description_; }

  bool isInstalled(const std::string& bundleIdentifier) const;
  /// The application must be installed. The home application does not restart, it comes to the front.
  void launch(const std::string& bundleIdentifier);
  /// Does nothing where the application does not run. The home application cannot be ended.
  void terminate(const std::string& bundleIdentifier);

  /// Null where the application does not run.
  const RunningApplication* running(const std::string& bundleIdentifier) const;
  bool isInFront(const std::string& bundleIdentifier) const { return bundleIdentifier == front_; }

  /// The alert that takes all touches; null where none is up. The last one that was raised comes first.
  const SystemAlert* alert() const { return alerts_.empty() ? nullptr : &alerts_.back(); }

  /// Touches what is at the point for the duration; nothing where the point is outside the screen or not finite.
  void touch(Point point, Seconds duration);

  /// Types at the end of the text of the element that has the keyboard's focus. Does nothing and answers false where
  /// neither `within` nor anything in it has the focus.
  bool type(const Element& within, std::string_view text);

  void pressHome();
  void changeVolume(int steps);
  /// Percent.
  double volume() const { return volume_; }

  /// The trees on the screen, the first one at the bottom.
  std::vector<const Element*> layers() const;

  /// Changes whenever what the screen shows may have changed.
  std::uint64_t revision() const { return revision_; }

 private:
  /// Shows its first screen and carries out its launch rules.
  void start(const ApplicationDescription& application);
  void bringToFront(const std::string& bundleIdentifier);
  void touchAlert(Point point);
  void answerAlert(const std::string& buttonLabel);
  void dismissAlertsOf(const std::string& bundleIdentifier);
  void touchFront(Point point);
  /// What the phone itself does with a touch; false where it does nothing.
  bool behave(Element& touched);
  void applyTapRules(const RunningApplication& application, const Element& touched);
  bool holds(const Rule& rule) const;
  void apply(const Rule& rule, const std::string& bundleIdentifier);
  // Effects of a rule of the application.
  void carryOut(const ShowScreen& effect, const std::string& bundleIdentifier);
  void carryOut(const SetValue& effect, const std::string& bundleIdentifier);
  void carryOut(const RaiseAlert& effect, const std::string& bundleIdentifier);
  void carryOut(const OpenApplication& effect, const std::string& bundleIdentifier);
  RunningApplication& home() { return running_.at(description_.home); }

  PhoneDescription description_;
  Clock& clock_;
  std::map<std::string, RunningApplication> running_;
  std::string front_;
  std::vector<SystemAlert> alerts_;
  std::map<std::string, std::string> values_;
  double volume_;
  int lastProcessIdentifier_ = 100;
  std::uint64_t lastAlertNumber_ = 0;
  std::uint64_t revision_ = 0;
};

}  // namespace quobrak::simulator
