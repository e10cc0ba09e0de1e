#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "drivers/simulator/PhoneDescription.h"
#include "drivers/simulator/RuleMatching.h"
#include "drivers/simulator/RunningApplication.h"
#include "drivers/simulator/Scrolling.h"
#include "platform/foundation/Clock.h"

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

/// What runs on a phone, which of it is in front, and what the rules of applications make of what happens to them.
/// Whatever carries out rules throws `EndlessRulesError`, and `RegularExpressionError` where a pattern of theirs
/// backtracks for ever; elements may vanish, and applications end.
class Applications {
 public:
  /// Starts the home application. `clock` must outlive this object.
  Applications(PhoneDescription description, Clock& clock);

  const PhoneDescription& description() const { return description_; }

  /// Carries out what has come due on the clock, each thing at its own time.
  void passTime();
  /// Lets time pass.
  void sleep(Seconds duration);

  /// The application must be installed. The home application does not restart, it comes to the front.
  void launch(const std::string& bundleIdentifier);
  /// Brings the application to the front as it is; one that does not run is started, after its launch time unless it is
  /// a rule of time that starts it. It must be installed.
  void activate(const std::string& bundleIdentifier);
  /// Does nothing where the application does not run. The home application cannot be ended.
  void terminate(const std::string& bundleIdentifier);

  /// Null where the application does not run.
  const RunningApplication* running(const std::string& bundleIdentifier) const;
  RunningApplication* running(const std::string& bundleIdentifier);
  RunningApplication& home() { return running_.at(description_.home); }
  RunningApplication& front() { return running_.at(front_); }
  const RunningApplication& front() const { return running_.at(front_); }
  const std::string& frontIdentifier() const { return front_; }
  void setFront(const std::string& bundleIdentifier);

  /// The alert that takes all touches; null where none is up. The last one that was raised comes first.
  const SystemAlert* alert() const { return alerts_.empty() ? nullptr : &alerts_.back(); }
  /// Takes that alert away and carries out what its application does on the answer.
  void answerAlert(const Element& button);
  /// Takes the alert or sheet away that the button of the application in front is in, one that its rules have raised,
  /// and carries out what the application does on the answer or else on the tap. False where it is in none.
  bool answerOwnAlert(const Element& button);

  /// The trees on the screen, the first one at the bottom.
  std::vector<const Element*> layers() const;

  /// What the application in front does where this happens to the very element.
  Reaction reactionTo(RuleEvent event, const Element& element) const;
  /// That of the innermost element around the one that is touched, or of that itself, to which the application reacts.
  Reaction reactionToTouch(RuleEvent event, const Element& touched) const;
  void carryOut(const Reaction& reaction, const std::string& bundleIdentifier);
  /// Carries out all that the application in front does where its element was scrolled.
  void reactToScrolling(const Element& scroller);

  /// Changes whenever what the screen shows, or anything in the tree of an application that runs, may have changed,
  /// before time passes.
  std::uint64_t revision() const { return revision_; }
  /// To be told of each change that others make in a tree.
  void noteChange() { ++revision_; }

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
  void carryOut(const Task& task);
  void carryOut(const PutOff& putOff, const RunningApplication& application);
  void moveOn(Clock::TimePoint until);
  bool moveOn(Motion& motion, Clock::TimePoint until);
  std::chrono::milliseconds length(const RuleDuration& duration) const;

  /// Shows its first screen and carries out its launch rules.
  void start(const ApplicationDescription& application);
  void showScreen(const std::string& bundleIdentifier, const std::string& name);
  /// Carries out what happens when the application's screen begins to be shown.
  void announceScreen(const RunningApplication& application);
  void scheduleTimeRules(const RunningApplication& application, std::uint64_t screen);

  void dismissAlertsOf(const std::string& bundleIdentifier);
  /// It happens to an element of the application in front.
  Occurrence occurrence(RuleEvent event, const Element& element) const;
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

  PhoneDescription description_;
  Clock& clock_;
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
  int lastProcessIdentifier_ = 100;
  std::uint64_t lastAlertNumber_ = 0;
  std::uint64_t revision_ = 0;
};

}  // namespace quobrak::simulator
