#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "drivers/simulator/PhoneDescription.h"
#include "drivers/simulator/RuleMatching.h"
#include "drivers/simulator/RunningApplication.h"
#include "drivers/simulator/Scrolling.h"
#include "platform/foundation/Clock.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::simulator {

/// The rules of applications set each other off without end.
class EndlessRulesError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
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
/// on the clock that it is given; what it brings is seen after `passTime`, and after everything that itself takes time.
/// What carries out rules of applications throws `EndlessRulesError`, and `RegularExpressionError` where a pattern of
/// theirs backtracks for ever.
class Phone {
 public:
  /// `clock` must outlive the phone.
  Phone(PhoneDescription description, Clock& clock);

  const PhoneDescription& description() const { return description_; }

  /// Carries out what has come due on the clock, each thing at its own time. Elements may vanish.
  void passTime();

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
  /// Whose effects are carried out, and what they may ask of the element that they come from.
  struct Context {
    std::string application;
    ElementTexts subject;
  };

  struct PutOff {
    const Later* later;
    ElementTexts subject;
  };

  /// What is to be done at a time.
  struct Task {
    std::string application;
    /// The number of the screen that must still be shown; 0 for any.
    std::uint64_t screen;
    /// A rule of time, effects that were put off, or elements, by their numbers, that vanish.
    std::variant<const Rule*, PutOff, std::vector<std::uint64_t>> what;
  };

  /// An element that is on its way.
  struct Motion {
    std::string application;
    std::uint64_t element;
    Clock::TimePoint start;
    std::chrono::milliseconds duration;
    FingerMove whole;
    FingerMove done;
  };

  /// The time that effects count from: the clock's, or that at which something came due.
  Clock::TimePoint moment() const { return dueTime_.value_or(clock_.now()); }
  void sleep(Seconds duration);
  void carryOut(const Task& task);
  void carryOut(const PutOff& putOff, const RunningApplication& application);
  void moveOn(Clock::TimePoint until);
  bool moveOn(Motion& motion, Clock::TimePoint until);
  std::chrono::milliseconds length(const RuleDuration& duration) const;

  RunningApplication* find(const std::string& bundleIdentifier);

  /// Shows its first screen and carries out its launch rules.
  void start(const ApplicationDescription& application);
  void setFront(const std::string& bundleIdentifier);
  void showScreen(const std::string& bundleIdentifier, const std::string& name);
  /// Carries out what happens when the application's screen begins to be shown.
  void announceScreen(const RunningApplication& application);
  void scheduleTimeRules(const RunningApplication& application, std::uint64_t screen);

  /// Waits for as long as the touch takes; false where it lands outside the screen.
  bool beginTouch(Point point, Seconds duration);
  /// The element that takes a touch at the point, which the observer is told of: one of the alert, in which nothing
  /// scrolls, where one is up. Null where the touch falls through.
  Element* takerOf(Point point);
  /// `scroller` is what was scrolled; null where nothing was.
  void endScrolling(const Element* scroller);

  void answerSystemAlert(const Element& button);
  void dismissAlertsOf(const std::string& bundleIdentifier);
  void tapOnAlert(const Element& touched);
  void touchApplication(Element& touched, Seconds duration);
  void tapOnApplication(Element& touched);
  /// What the phone itself does with a tap; true where the application's rules have no say in it any more.
  bool behave(Element& touched);
  /// Answers the alert or sheet of the application that the button is in; false where it is in none.
  bool answerOwnAlert(const Element& touched);

  void tapKey(const Element& key);
  void typeText(std::string_view text);
  void typeReturn();

  Occurrence occurrence(RuleEvent event, const Element* element = nullptr) const;
  /// What the application in front does where this happens to the very element.
  Reaction reactionTo(RuleEvent event, const Element& element) const;
  /// That of the innermost element around the one that is touched, or of that itself, to which the application reacts.
  Reaction reactionToTouch(RuleEvent event, const Element& touched) const;
  void carryOut(const Reaction& reaction, const std::string& bundleIdentifier);
  void carryOut(const std::vector<Reaction>& reactions, const std::string& bundleIdentifier);
  void carryOut(const std::vector<Effect>& effects, const Context& context);

  // Each for an application that runs.
  void carryOut(const ShowScreen& effect, const Context& context);
  void carryOut(const SetValues& effect, const Context& context);
  void carryOut(const AddToValues& effect, const Context& context);
  void carryOut(const ChangeElements& effect, const Context& context);
  void carryOut(const MoveElements& effect, const Context& context);
  void carryOut(const InsertElements& effect, const Context& context);
  void carryOut(const RemoveElements& effect, const Context& context);
  void carryOut(const FocusElement& effect, const Context& context);
  void carryOut(const RaiseAlert& effect, const Context& context);
  void carryOut(const OpenApplication& effect, const Context& context);
  void carryOut(const OpenAddress& effect, const Context& context);
  void carryOut(const TerminateApplication& effect, const Context& context);
  void carryOut(const Later& effect, const Context& context);

  /// The application's elements that the predicate picks, without the phone's own keyboard and the system's alerts.
  std::vector<Element*> elementsOf(RunningApplication& application, const PredicateEvaluator& predicate) const;
  void removeElements(const std::string& bundleIdentifier, const std::vector<std::uint64_t>& numbers);

  RunningApplication& home() { return running_.at(description_.home); }
  RunningApplication& front() { return running_.at(front_); }

  PhoneDescription description_;
  Clock& clock_;
  std::function<void(const Element& touched, Point point)> observer_;
  std::map<std::string, RunningApplication> running_;
  std::string front_;
  std::vector<SystemAlert> alerts_;
  NamedValues values_;
  std::multimap<Clock::TimePoint, Task> agenda_;
  std::vector<Motion> motions_;
  /// The time of what is being carried out because it came due.
  std::optional<Clock::TimePoint> dueTime_;
  /// How many effects are being carried out, each because of the one before.
  int nesting_ = 0;
  double volume_;
  int lastProcessIdentifier_ = 100;
  std::uint64_t lastAlertNumber_ = 0;
  std::uint64_t revision_ = 0;
};

}  // namespace quobrak::simulator
