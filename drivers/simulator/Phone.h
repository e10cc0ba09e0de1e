#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/simulator/Keyboard.h"
#include "drivers/simulator/PhoneDescription.h"
#include "platform/foundation/Clock.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::simulator {

/// An application that runs.
struct RunningApplication {
  const ApplicationDescription* description;
  int processIdentifier;
  /// The screen that it shows: an Application and all below it.
  std::unique_ptr<Element> screen;
  /// The element of the screen that has the keyboard's focus; null for none.
  Element* focused = nullptr;
  /// The window of the phone's own keyboard, at the end of the screen's tree; null where it is not up. A captured
  /// screen that shows a keyboard gets no second one.
  Element* keyboard = nullptr;
  KeyboardPlane keyboardPlane = KeyboardPlane::letters;
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
  /// Brings the application to the front as it is; one that does not run is started. It must be installed.
  void activate(const std::string& bundleIdentifier);
  /// Does nothing where the application does not run. The home application cannot be ended.
  void terminate(const std::string& bundleIdentifier);

  /// Null where the application does not run.
  const RunningApplication* running(const std::string& bundleIdentifier) const;
  bool isInFront(const std::string& bundleIdentifier) const { return bundleIdentifier == front_; }

  /// The alert that takes all touches; null where none is up. The last one that was raised comes first.
  const SystemAlert* alert() const { return alerts_.empty() ? nullptr : &alerts_.back(); }

  /// Touches what is at the point for the duration; nothing where the point is outside the screen or not finite.
  void touch(Point point, Seconds duration);

  /// Touches `from` for the duration, moves to `to` and lifts: what scrolls under the first point follows the finger,
  /// which the edge of the screen stops. Where the finger does not move, it is a touch. Nothing where `from` is outside
  /// the screen or not finite; where `to` is not finite, nothing moves.
  void drag(Point from, Seconds hold, Point to);

  /// A finger goes over the element in that direction, through the middle of what is seen of it above the keyboard:
  /// what scrolls there moves by `SWIPED_SHARE` of what is seen of it. Nothing where no part of the element is on the
  /// screen.
  void swipe(const Element& element, SwipeDirection direction);

  /// Who is told of each touch of `touch`, `drag` and `swipe`, before it has its effect: with the element that takes
  /// it, which may be a key, or an alert or its button, and where. Not of touches that fall through. One observer at a
  /// time; it must not use the phone.
  void observeTouches(std::function<void(const Element& touched, Point point)> observer) {
    observer_ = std::move(observer);
  }

  /// The element of the application in front that has the keyboard's focus; null for none.
  const Element* focusedElement() const { return running_.at(front_).focused; }

  /// Types at the end of the text of the element that has the keyboard's focus: U+0008 and U+007F delete a character, a
  /// line feed or a carriage return is the return key. What is typed after the focus has ended is lost. Does nothing
  /// and answers false where neither `within` nor anything in it has the focus.
  bool type(const Element& within, std::string_view text);

  void pressHome();
  void changeVolume(int steps);
  /// Percent.
  double volume() const { return volume_; }

  /// The trees on the screen, the first one at the bottom.
  std::vector<const Element*> layers() const;

  /// Changes whenever what the screen shows, or anything in the tree of an application that runs, may have changed,
  /// before time passes.
  std::uint64_t revision() const { return revision_; }

 private:
  /// Shows its first screen and carries out its launch rules.
  void start(const ApplicationDescription& application);
  void setFront(const std::string& bundleIdentifier);

  /// Waits for as long as the touch takes; false where it lands outside the screen.
  bool beginTouch(Point point, Seconds duration);
  /// The element that takes a touch at the point, which the observer is told of: one of the alert, in which nothing
  /// scrolls, where one is up. Null where the touch falls through.
  Element* takerOf(Point point);
  void endScrolling(bool hasMoved);

  void answerAlert(const std::string& buttonLabel);
  void dismissAlertsOf(const std::string& bundleIdentifier);
  void tapOnAlert(const Element& touched);
  void tapOnApplication(Element& touched);
  /// What the phone itself does with a tap; true where the application's rules have no say in it any more.
  bool behave(Element& touched);

  void focus(Element& field);
  static void endEditing(RunningApplication& application);
  void tapKey(const Element& key);
  void typeText(RunningApplication& application, std::string_view text);
  void typeReturn(RunningApplication& application);

  /// The first rule about a tap on the very element that holds; null where none does.
  const Rule* tapRule(const RunningApplication& application, const Element& element) const;
  void applyTapRules(const RunningApplication& application, const Element& touched);
  bool holds(const Rule& rule) const;
  void apply(const Rule& rule, const std::string& bundleIdentifier);
  // Effects of a rule of the application.
  void carryOut(const ShowScreen& effect, const std::string& bundleIdentifier);
  void carryOut(const SetValue& effect, const std::string& bundleIdentifier);
  void carryOut(const RaiseAlert& effect, const std::string& bundleIdentifier);
  void carryOut(const OpenApplication& effect, const std::string& bundleIdentifier);
  RunningApplication& home() { return running_.at(description_.home); }
  RunningApplication& front() { return running_.at(front_); }

  PhoneDescription description_;
  Clock& clock_;
  std::function<void(const Element& touched, Point point)> observer_;
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
