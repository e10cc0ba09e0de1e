#include "drivers/simulator/Applications.h"

#include <algorithm>
#include <cstddef>

#include "drivers/simulator/AlertScreens.h"
#include "drivers/simulator/TextInput.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::simulator {

namespace {

/// Shown, but no control: where such an element is disabled, a touch on it still reaches what it is in.
bool isMereContent(ElementType type) {
  return type == ElementType::staticText || type == ElementType::image || type == ElementType::other;
}

/// Rules that set each other off come to an end long before, unless they never do.
constexpr int DEEPEST_NESTING = 50;
constexpr int MOST_AT_ONCE = 10'000;

/// Undone when what is being carried out ends, by an error too.
template <class Value>
class Temporarily {
 public:
  Temporarily(Value& variable, Value value) : variable_(variable), before_(std::exchange(variable, std::move(value))) {}
  ~Temporarily() { variable_ = before_; }
  Temporarily(const Temporarily&) = delete;
  Temporarily& operator=(const Temporarily&) = delete;

 private:
  Value& variable_;
  Value before_;
};

[[noreturn]] void failForEndlessRules(const std::string& bundleIdentifier) {
  throw EndlessRulesError("the rules of \"" + bundleIdentifier + "\" set each other off without end");
}

/// How much of a way is done, from 0 to 1.
double shareOf(std::chrono::nanoseconds passed, std::chrono::nanoseconds whole) {
  return passed >= whole ? 1 : std::max(0.0, static_cast<double>(passed.count()) / static_cast<double>(whole.count()));
}

const Element* firstOf(const std::vector<Element*>& elements) {
  return elements.empty() ? nullptr : elements.front();
}

AlertText expanded(const RaiseAlert& effect, const NamedValues& values) {
  AlertText alert{.title = effect.title.expand(values), .message = effect.message.expand(values), .buttons = {}};
  for (const TextTemplate& button : effect.buttons) {
    alert.buttons.push_back(button.expand(values));
  }
  return alert;
}

}  // namespace

Applications::Applications(PhoneDescription description, Clock& clock)
    : description_(std::move(description)), clock_(clock), front_(description_.home), values_(description_.values) {
  start(description_.applications.at(description_.home));
}

void Applications::passTime() {
  const Clock::TimePoint now = clock_.now();
  Clock::TimePoint last{};
  int count = 0;
  while (!agenda_.empty() && agenda_.begin()->first <= now) {
    const auto due = agenda_.extract(agenda_.begin());
    count = due.key() == last ? count + 1 : 1;
    last = due.key();
    if (count > MOST_AT_ONCE) {
      failForEndlessRules(due.mapped().application);
    }
    moveOn(due.key());
    const Temporarily atItsTime(dueTime_, std::optional(due.key()));
    carryOut(due.mapped());
  }
  moveOn(now);
}

void Applications::sleep(Seconds duration) {
  sleepFor(clock_, duration);
  passTime();
}

void Applications::carryOut(const Task& task) {
  const RunningApplication* const application = running(task.application);
  if (application == nullptr || (task.screen != 0 && application->screen->number != task.screen)) {
    return;
  }
  if (const auto* const numbers = std::get_if<std::vector<std::uint64_t>>(&task.what)) {
    removeElements(task.application, *numbers);
    return;
  }
  if (const auto* const putOff = std::get_if<PutOff>(&task.what)) {
    carryOut(*putOff, *application);
    return;
  }
  const Rule* const rule = std::get<const Rule*>(task.what);
  if (rule->every) {
    agenda_.emplace(moment() + std::max(length(*rule->every), SHORTEST_INTERVAL), task);
  }
  if (applies(*rule, {.event = RuleEvent::time, .screen = application->screenName}, values_)) {
    carryOut(Reaction{.rule = rule, .subject = {}}, task.application);
  }
}

void Applications::carryOut(const PutOff& putOff, const RunningApplication& application) {
  const Later& later = *putOff.later;
  if (isOneOf(later.screens, application.screenName) && (!later.condition || later.condition->evaluate(values_))) {
    carryOut(later.effects, {.application = application.description->bundleIdentifier, .subject = putOff.subject});
  }
}

void Applications::moveOn(Clock::TimePoint until) {
  std::erase_if(motions_, [&](Motion& motion) { return !moveOn(motion, until); });
}

/// False where the element has arrived, or is gone.
bool Applications::moveOn(Motion& motion, Clock::TimePoint until) {
  RunningApplication* const application = running(motion.application);
  Element* const element = application == nullptr ? nullptr : elementNumbered(*application->screen, motion.element);
  if (element == nullptr) {
    return false;
  }
  const double share = shareOf(until - motion.start, motion.duration);
  const FingerMove due{.dx = motion.whole.dx * share, .dy = motion.whole.dy * share};
  if (due.dx != motion.done.dx || due.dy != motion.done.dy) {
    shift(*element, {.dx = due.dx - motion.done.dx, .dy = due.dy - motion.done.dy});
    motion.done = due;
    ++revision_;
  }
  return share < 1;
}

std::chrono::milliseconds Applications::length(const RuleDuration& duration) const {
  const auto* const name = std::get_if<std::string>(&duration);
  return name == nullptr ? std::get<std::chrono::milliseconds>(duration) : values_.duration(*name);
}

RunningApplication* Applications::running(const std::string& bundleIdentifier) {
  const auto found = running_.find(bundleIdentifier);
  return found == running_.end() ? nullptr : &found->second;
}

void Applications::start(const ApplicationDescription& application) {
  const std::string& bundleIdentifier = application.bundleIdentifier;
  RunningApplication made{.description = &application,
                          .processIdentifier = ++lastProcessIdentifier_,
                          .screenName = {},
                          .screen = nullptr,
                          .focused = nullptr,
                          .keyboard = nullptr,
                          .alerts = {}};
  made.screenName = application.firstScreen;
  made.screen = application.screens.at(application.firstScreen)->copy();
  const std::uint64_t firstScreen = made.screen->number;
  scheduleTimeRules(running_.insert_or_assign(bundleIdentifier, std::move(made)).first->second, 0);
  setFront(bundleIdentifier);
  carryOut(allReactions(application.rules, {.event = RuleEvent::launch, .screen = application.firstScreen}, values_),
           bundleIdentifier);
  const RunningApplication* const started = running(bundleIdentifier);
  if (started != nullptr && started->screen->number == firstScreen) {
    announceScreen(*started);
  }
}

void Applications::showScreen(const std::string& bundleIdentifier, const std::string& name) {
  RunningApplication& application = running_.at(bundleIdentifier);
  application.endEditing();
  std::unique_ptr<Element> screen = application.description->screens.at(name)->copy();
  if (bundleIdentifier == description_.home) {
    // The alerts stay up, whatever the home screen shows behind them.
    for (const SystemAlert& alert : alerts_) {
      screen->append(application.screen->remove(*alert.window));
    }
  }
  application.screen = std::move(screen);
  application.screenName = name;
  application.alerts.clear();
  ++revision_;
  announceScreen(application);
}

void Applications::announceScreen(const RunningApplication& application) {
  scheduleTimeRules(application, application.screen->number);
  carryOut(allReactions(application.description->rules, {.event = RuleEvent::screen, .screen = application.screenName},
                        values_),
           application.description->bundleIdentifier);
}

/// Those that count from the beginning of a screen, or those that count from the start of the application for a screen
/// of number 0.
void Applications::scheduleTimeRules(const RunningApplication& application, std::uint64_t screen) {
  for (const Rule& rule : application.description->rules) {
    const bool counts =
        rule.screens.empty() ? screen == 0 : screen != 0 && isOneOf(rule.screens, application.screenName);
    if (rule.event == RuleEvent::time && counts) {
      agenda_.emplace(moment() + length(rule.after),
                      Task{.application = application.description->bundleIdentifier, .screen = screen, .what = &rule});
    }
  }
}

void Applications::activate(const std::string& bundleIdentifier) {
  if (running_.contains(bundleIdentifier)) {
    setFront(bundleIdentifier);
    return;
  }
  const ApplicationDescription& application = description_.applications.at(bundleIdentifier);
  if (!dueTime_) {
    sleep(application.launchTime);
  }
  start(application);
}

/// What is not in front has no keyboard.
void Applications::setFront(const std::string& bundleIdentifier) {
  const auto before = running_.find(front_);
  if (before != running_.end() && front_ != bundleIdentifier) {
    before->second.endEditing();
  }
  front_ = bundleIdentifier;
  ++revision_;
}

void Applications::launch(const std::string& bundleIdentifier) {
  terminate(bundleIdentifier);
  activate(bundleIdentifier);
}

void Applications::terminate(const std::string& bundleIdentifier) {
  if (bundleIdentifier == description_.home || running_.erase(bundleIdentifier) == 0) {
    return;
  }
  dismissAlertsOf(bundleIdentifier);
  std::erase_if(agenda_, [&](const auto& entry) { return entry.second.application == bundleIdentifier; });
  std::erase_if(motions_, [&](const Motion& motion) { return motion.application == bundleIdentifier; });
  setFront(front_ == bundleIdentifier ? description_.home : front_);
}

const RunningApplication* Applications::running(const std::string& bundleIdentifier) const {
  const auto found = running_.find(bundleIdentifier);
  return found == running_.end() ? nullptr : &found->second;
}

void Applications::answerAlert(const Element& button) {
  const SystemAlert answered = alerts_.back();
  if (!answered.answer.empty()) {
    values_.set(answered.answer, button.label);
  }
  const RunningApplication* const owner = running(answered.owner);
  Reaction reaction;
  if (owner != nullptr) {
    const Occurrence answer{
        .event = RuleEvent::answer, .screen = owner->screenName, .element = &button, .alert = &answered.alert()};
    reaction = firstReaction(owner->description->rules, answer, values_);
  }
  alerts_.pop_back();
  home().screen->remove(*answered.window);
  ++revision_;
  carryOut(reaction, answered.owner);
}

void Applications::dismissAlertsOf(const std::string& bundleIdentifier) {
  std::erase_if(alerts_, [&](const SystemAlert& alert) {
    const bool isOwned = alert.owner == bundleIdentifier;
    if (isOwned) {
      home().screen->remove(*alert.window);
    }
    return isOwned;
  });
}

/// What the application does on the tap, where no rule is about the answer, it does when the alert is gone.
bool Applications::answerOwnAlert(const Element& button) {
  RunningApplication& application = front();
  const auto isAround = [&](const RunningApplication::OwnAlert& alert) {
    const Element* const window = elementNumbered(*application.screen, alert.window);
    return window != nullptr && isWithin(button, *window);
  };
  const auto answered = std::find_if(application.alerts.begin(), application.alerts.end(), isAround);
  if (button.type != ElementType::button || !button.isEnabled || answered == application.alerts.end()) {
    return false;
  }
  if (!answered->answer.empty()) {
    values_.set(answered->answer, button.label);
  }
  Occurrence answer = occurrence(RuleEvent::answer, button);
  answer.alert = button.parent();
  Reaction reaction = firstReaction(application.description->rules, answer, values_);
  if (reaction.rule == nullptr) {
    reaction = reactionToTouch(RuleEvent::tap, button);
  }
  application.remove(*elementNumbered(*application.screen, answered->window));
  application.alerts.erase(answered);
  ++revision_;
  carryOut(reaction, front_);
  return true;
}

Occurrence Applications::occurrence(RuleEvent event, const Element& element) const {
  return {.event = event, .screen = front().screenName, .element = &element};
}

Reaction Applications::reactionTo(RuleEvent event, const Element& element) const {
  return firstReaction(front().description->rules, occurrence(event, element), values_);
}

Reaction Applications::reactionToTouch(RuleEvent event, const Element& touched) const {
  for (const Element* element = &touched; element != nullptr; element = element->parent()) {
    if (!element->isEnabled) {
      if (isMereContent(element->type)) {
        continue;
      }
      return {};
    }
    if (Reaction reaction = reactionTo(event, *element); reaction.rule != nullptr) {
      return reaction;
    }
  }
  return {};
}

void Applications::reactToScrolling(const Element& scroller) {
  carryOut(allReactions(front().description->rules, occurrence(RuleEvent::scroll, scroller), values_), front_);
}

void Applications::carryOut(const Reaction& reaction, const std::string& bundleIdentifier) {
  if (reaction.rule != nullptr) {
    carryOut(reaction.rule->effects, {.application = bundleIdentifier, .subject = reaction.subject});
  }
}

void Applications::carryOut(const std::vector<Reaction>& reactions, const std::string& bundleIdentifier) {
  // It may be that of the application in front, and another one may be there soon.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): so the copy outlives what it is a copy of.
  const std::string application = bundleIdentifier;
  for (const Reaction& reaction : reactions) {
    carryOut(reaction, application);
  }
}

void Applications::carryOut(const std::vector<Effect>& effects, const Context& context) {
  if (nesting_ == DEEPEST_NESTING) {
    failForEndlessRules(context.application);
  }
  const Temporarily deeper(nesting_, nesting_ + 1);
  for (const Effect& effect : effects) {
    if (running(context.application) == nullptr) {
      return;
    }
    std::visit([&](const auto& one) { carryOut(one, context); }, effect.what);
    // Before the next effect, in which time may pass.
    ++revision_;
  }
}

void Applications::carryOut(const ShowScreen& effect, const Context& context) {
  showScreen(context.application, effect.screen);
}

void Applications::carryOut(const SetValues& effect, const Context& context) {
  RunningApplication& application = running_.at(context.application);
  std::vector<std::pair<std::string, std::string>> texts;
  for (const auto& [name, source] : effect.texts) {
    if (const auto* const text = std::get_if<TextTemplate>(&source)) {
      texts.emplace_back(name, text->expand(values_));
      continue;
    }
    const auto& copied = std::get<ElementText>(source);
    texts.emplace_back(name, copied.element
                                 ? textsOf(firstOf(elementsOf(application, *copied.element))).of(copied.attribute)
                                 : context.subject.of(copied.attribute));
  }
  for (auto& [name, text] : texts) {
    values_.set(name, std::move(text));
  }
}

void Applications::carryOut(const AddToValues& effect, const Context&) {
  for (const auto& [name, amount] : effect.amounts) {
    values_.add(name, amount);
  }
}

void Applications::carryOut(const ChangeElements& effect, const Context& context) {
  for (Element* const element : elementsOf(running_.at(context.application), effect.elements)) {
    change(*element, effect, values_);
  }
}

void Applications::carryOut(const MoveElements& effect, const Context& context) {
  for (const Element* const element : elementsOf(running_.at(context.application), effect.elements)) {
    motions_.push_back({.application = context.application,
                        .element = element->number,
                        .start = moment(),
                        .duration = length(effect.over),
                        .whole = {.dx = effect.dx, .dy = effect.dy},
                        .done = {}});
  }
  moveOn(moment());
}

void Applications::carryOut(const InsertElements& effect, const Context& context) {
  RunningApplication& application = running_.at(context.application);
  Element* parent = application.screen.get();
  if (effect.into) {
    const std::vector<Element*> found = elementsOf(application, *effect.into);
    if (found.empty()) {
      return;
    }
    parent = found.front();
  }
  std::vector<std::uint64_t> inserted =
      insertCopies(*application.description->fragments.at(effect.fragment), *parent, effect.insertion);
  if (effect.lifetime) {
    agenda_.emplace(moment() + length(*effect.lifetime),
                    Task{.application = context.application, .screen = 0, .what = std::move(inserted)});
  }
}

void Applications::carryOut(const RemoveElements& effect, const Context& context) {
  std::vector<std::uint64_t> numbers;
  for (const Element* const element : elementsOf(running_.at(context.application), effect.elements)) {
    numbers.push_back(element->number);
  }
  removeElements(context.application, numbers);
}

void Applications::removeElements(const std::string& bundleIdentifier, const std::vector<std::uint64_t>& numbers) {
  RunningApplication& application = running_.at(bundleIdentifier);
  for (const std::uint64_t number : numbers) {
    // It may have gone with one that it was in.
    if (Element* const element = elementNumbered(*application.screen, number)) {
      application.remove(*element);
      ++revision_;
    }
  }
}

void Applications::carryOut(const FocusElement& effect, const Context& context) {
  RunningApplication& application = running_.at(context.application);
  const std::vector<Element*> found = elementsOf(application, effect.elements);
  if (front_ == context.application && !found.empty() && takesText(found.front()->type) && found.front()->isEnabled) {
    application.beginEditing(*found.front(), description_.size);
  }
}

void Applications::carryOut(const RaiseAlert& effect, const Context& context) {
  const AlertText text = expanded(effect, values_);
  if (effect.kind == AlertKind::system) {
    const Element& window = home().screen->append(alertWindow(text, description_.size));
    alerts_.push_back({++lastAlertNumber_, context.application, effect.answer, &window});
    return;
  }
  RunningApplication& application = running_.at(context.application);
  application.endEditing();
  const Element& window = application.screen->append(
      effect.kind == AlertKind::alert ? alertWindow(text, description_.size) : sheetWindow(text, description_.size));
  application.alerts.push_back({.window = window.number, .answer = effect.answer});
}

void Applications::carryOut(const OpenApplication& effect, const Context&) {
  activate(effect.bundleIdentifier);
}

void Applications::carryOut(const OpenAddress& effect, const Context&) {
  const std::string address = effect.address.expand(values_);
  const ApplicationDescription* opener = nullptr;
  std::size_t longest = 0;
  for (const auto& [bundleIdentifier, application] : description_.applications) {
    for (const std::string& beginning : application.addresses) {
      if (address.starts_with(beginning) && beginning.size() > longest) {
        opener = &application;
        longest = beginning.size();
      }
    }
  }
  if (opener == nullptr) {
    return;
  }
  values_.set("address", address);
  activate(opener->bundleIdentifier);
  // What its rules did at its start may have opened another one.
  values_.set("address", address);
  if (const RunningApplication* const application = running(opener->bundleIdentifier)) {
    const Occurrence opened{.event = RuleEvent::address, .screen = application->screenName};
    carryOut(firstReaction(opener->rules, opened, values_), opener->bundleIdentifier);
  }
}

void Applications::carryOut(const TerminateApplication& effect, const Context&) {
  terminate(effect.bundleIdentifier);
}

void Applications::carryOut(const Later& effect, const Context& context) {
  agenda_.emplace(moment() + length(effect.after),
                  Task{.application = context.application, .screen = 0, .what = PutOff{&effect, context.subject}});
}

std::vector<Element*> Applications::elementsOf(RunningApplication& application,
                                               const PredicateEvaluator& predicate) const {
  std::vector<Element*> found = elementsMatching(*application.screen, predicate);
  std::erase_if(found, [&](const Element* element) {
    const auto isOfAlert = [element](const SystemAlert& alert) { return isWithin(*element, *alert.window); };
    return (application.keyboard != nullptr && isWithin(*element, *application.keyboard)) ||
           std::any_of(alerts_.begin(), alerts_.end(), isOfAlert);
  });
  return found;
}

std::vector<const Element*> Applications::layers() const {
  std::vector<const Element*> trees{running_.at(front_).screen.get()};
  if (front_ != description_.home) {
    for (const SystemAlert& alert : alerts_) {
      trees.push_back(alert.window);
    }
  }
  return trees;
}

}  // namespace quobrak::simulator
