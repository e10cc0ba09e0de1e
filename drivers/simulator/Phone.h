#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/simulator/Applications.h"
#include "drivers/simulator/PhoneDescription.h"
#include "platform/foundation/Clock.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::simulator {

/// A phone that is switched on: what runs, what is on the screen, and what a finger or a button does to it. Time passes
/// on the clock that it is given; what it brings is seen after `passTime`, and after everything that itself takes time.
/// What carries out rules of applications throws `EndlessRulesError`, and `RegularExpressionError` where a pattern of
/// theirs backtracks for ever.
class Phone {
 public:
  /// `clock` must outlive the phone.
  Phone(PhoneDescription description, Clock& clock);

  const PhoneDescription& description() const { return applications_.description(); }

  /// Carries out what has come due on the clock, each thing at its own time. Elements may vanish.
  void passTime() { applications_.passTime(); }

  bool isInstalled(const std::string& bundleIdentifier) const {
    return description().applications.contains(bundleIdentifier);
  }
  /// The application must be installed. The home application does not restart, it comes to the front.
  void launch(const std::string& bundleIdentifier) { applications_.launch(bundleIdentifier); }
  /// Brings the application to the front as it is; one that does not run is started. It must be installed.
  void activate(const std::string& bundleIdentifier) { applications_.activate(bundleIdentifier); }
  /// Does nothing where the application does not run. The home application cannot be ended.
  void terminate(const std::string& bundleIdentifier) { applications_.terminate(bundleIdentifier); }

  /// Null where the application does not run.
  const RunningApplication* running(const std::string& bundleIdentifier) const {
    return applications_.running(bundleIdentifier);
  }
  const std::string& frontIdentifier() const { return applications_.frontIdentifier(); }
  bool isInFront(const std::string& bundleIdentifier) const { return bundleIdentifier == frontIdentifier(); }

  /// The alert that takes all touches; null where none is up. The last one that was raised comes first.
  const SystemAlert* alert() const { return applications_.alert(); }

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
  const Element* focusedElement() const { return applications_.front().focused; }

  /// Types at the end of the text of the element that has the keyboard's focus: U+0008 and U+007F delete a character, a
  /// line feed or a carriage return is the return key. What is typed after the focus has ended is lost. Does nothing
  /// and answers false where neither `within` nor anything in it has the focus.
  bool type(const Element& within, std::string_view text);

  void pressHome();
  void changeVolume(int steps);
  /// Percent.
  double volume() const { return volume_; }

  /// The trees on the screen, the first one at the bottom.
  std::vector<const Element*> layers() const { return applications_.layers(); }

  /// Changes whenever what the screen shows, or anything in the tree of an application that runs, may have changed,
  /// before time passes.
  std::uint64_t revision() const { return applications_.revision(); }

 private:
  /// Waits for as long as the touch takes; false where it lands outside the screen.
  bool beginTouch(Point point, Seconds duration);
  /// The element that takes a touch at the point, which the observer is told of: one of the alert, in which nothing
  /// scrolls, where one is up. Null where the touch falls through.
  Element* takerOf(Point point);
  /// `scroller` is what was scrolled; null where nothing was.
  void endScrolling(const Element* scroller);

  void touchAlert(const Element& touched);
  void touchApplication(Element& touched, Seconds duration);
  void tapOnApplication(Element& touched);
  /// What the phone itself does with a tap; true where the application's rules have no say in it any more.
  bool behave(Element& touched);
  /// False where no application has this name.
  bool openFromIcon(const std::string& label);

  void tapKey(const Element& key);
  void typeText(std::string_view text);
  void typeReturn();

  Applications applications_;
  std::function<void(const Element& touched, Point point)> observer_;
  double volume_;
};

}  // namespace quobrak::simulator
