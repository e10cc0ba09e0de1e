#include "drivers/simulator/Phone.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "drivers/simulator/AlertScreens.h"
#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"
#include "drivers/simulator/ScreenChanges.h"
#include "drivers/simulator/Scrolling.h"
#include "drivers/simulator/TextInput.h"
#include "platform/foundation/Unicode.h"
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

/// How a finger has to rest on an element for a long press, as on the phone.
constexpr Seconds LONG_PRESS(0.5);

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

Phone::Phone(PhoneDescription description, Clock& clock)
    : description_(std::move(description)),
      clock_(clock),
      front_(description_.home),
      values_(description_.values),
      volume_(description_.volume) {
  start(description_.applications.at(description_.home));
}

bool Phone::isInstalled(const std::string& bundleIdentifier) const {
  return description_.applications.contains(bundleIdentifier);
}

void Phone::passTime() {
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

void Phone::sleep(Seconds duration) {
  sleepFor(clock_, duration);
  passTime();
}

void Phone::carryOut(const Task& task) {
  const RunningApplication* const application = find(task.application);
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

void Phone::carryOut(const PutOff& putOff, const RunningApplication& application) {
  const Later& later = *putOff.later;
  if (isOneOf(later.screens, application.screenName) && (!later.condition || later.condition->evaluate(values_))) {
    carryOut(later.effects, {.application = application.description->bundleIdentifier, .subject = putOff.subject});
  }
}

void Phone::moveOn(Clock::TimePoint until) {
  std::erase_if(motions_, [&](Motion& motion) { return !moveOn(motion, until); });
}

/// False where the element has arrived, or is gone.
bool Phone::moveOn(Motion& motion, Clock::TimePoint until) {
  RunningApplication* const application = find(motion.application);
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

std::chrono::milliseconds Phone::length(const RuleDuration& duration) const {
  const auto* const name = std::get_if<std::string>(&duration);
  return name == nullptr ? std::get<std::chrono::milliseconds>(duration) : values_.duration(*name);
}

RunningApplication* Phone::find(const std::string& bundleIdentifier) {
  const auto found = running_.find(bundleIdentifier);
  return found == running_.end() ? nullptr : &found->second;
}

void Phone::start(const ApplicationDescription& application) {
  const std::string& bundleIdentifier = application.bundleIdentifier;
  RunningApplication running{.description = &application,
                             .processIdentifier = ++lastProcessIdentifier_,
                             .screenName = {},
                             .screen = nullptr,
                             .focused = nullptr,
                             .keyboard = nullptr,
                             .alerts = {}};
  running.screenName = application.firstScreen;
  running.screen = application.screens.at(application.firstScreen)->copy();
  const std::uint64_t firstScreen = running.screen->number;
  scheduleTimeRules(running_.insert_or_assign(bundleIdentifier, std::move(running)).first->second, 0);
  setFront(bundleIdentifier);
  carryOut(allReactions(application.rules, {.event = RuleEvent::launch, .screen = application.firstScreen}, values_),
           bundleIdentifier);
  const RunningApplication* const started = find(bundleIdentifier);
  if (started != nullptr && started->screen->number == firstScreen) {
    announceScreen(*started);
  }
}

void Phone::showScreen(const std::string& bundleIdentifier, const std::string& name) {
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

void Phone::announceScreen(const RunningApplication& application) {
  scheduleTimeRules(application, application.screen->number);
  carryOut(allReactions(application.description->rules, {.event = RuleEvent::screen, .screen = application.screenName},
                        values_),
           application.description->bundleIdentifier);
}

/// Those that count from the beginning of a screen, or those that count from the start of the application for a screen
/// of number 0.
void Phone::scheduleTimeRules(const RunningApplication& application, std::uint64_t screen) {
  for (const Rule& rule : application.description->rules) {
    const bool counts =
        rule.screens.empty() ? screen == 0 : screen != 0 && isOneOf(rule.screens, application.screenName);
    if (rule.event == RuleEvent::time && counts) {
      agenda_.emplace(moment() + length(rule.after),
                      Task{.application = application.description->bundleIdentifier, .screen = screen, .what = &rule});
    }
  }
}

void Phone::activate(const std::string& bundleIdentifier) {
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
void Phone::setFront(const std::string& bundleIdentifier) {
  const auto before = running_.find(front_);
  if (before != running_.end() && front_ != bundleIdentifier) {
    before->second.endEditing();
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
  std::erase_if(agenda_, [&](const auto& entry) { return entry.second.application == bundleIdentifier; });
  std::erase_if(motions_, [&](const Motion& motion) { return motion.application == bundleIdentifier; });
  setFront(front_ == bundleIdentifier ? description_.home : front_);
}

const RunningApplication* Phone::running(const std::string& bundleIdentifier) const {
  const auto found = running_.find(bundleIdentifier);
  return found == running_.end() ? nullptr : &found->second;
}

bool Phone::beginTouch(Point point, Seconds duration) {
  sleep(description_.touchDelay);
  sleep(duration);
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
  const Point end{std::clamp(to.x, 0.0, description_.size.width), std::clamp(to.y, 0.0, description_.size.height)};
  endScrolling(touched == nullptr || !isFinite(to)
                   ? nullptr
                   : dragContent(*touched, {.dx = end.x - from.x, .dy = end.y - from.y}));
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
  endScrolling(touched == nullptr ? nullptr : swipeContent(*touched, direction, area));
}

void Phone::endScrolling(const Element* scroller) {
  if (scroller != nullptr) {
    ++revision_;
    carryOut(allReactions(front().description->rules, occurrence(RuleEvent::scroll, scroller), values_), front_);
  }
  sleep(description_.scrollDelay);
}

void Phone::tapOnAlert(const Element& touched) {
  if (touched.type == ElementType::button && isWithin(touched, *alert()->window)) {
    answerSystemAlert(touched);
  }
}

void Phone::answerSystemAlert(const Element& button) {
  const SystemAlert answered = alerts_.back();
  if (!answered.answer.empty()) {
    values_.set(answered.answer, button.label);
  }
  const RunningApplication* const owner = find(answered.owner);
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

void Phone::dismissAlertsOf(const std::string& bundleIdentifier) {
  std::erase_if(alerts_, [&](const SystemAlert& alert) {
    const bool isOwned = alert.owner == bundleIdentifier;
    if (isOwned) {
      home().screen->remove(*alert.window);
    }
    return isOwned;
  });
}

void Phone::touchApplication(Element& touched, Seconds duration) {
  const bool isLong = duration >= LONG_PRESS && !isOnKeyboard(touched);
  const Reaction reaction = isLong ? reactionToTouch(RuleEvent::longPress, touched) : Reaction();
  if (reaction.rule == nullptr) {
    tapOnApplication(touched);
  } else {
    carryOut(reaction, std::string(front_));
  }
}

void Phone::tapOnApplication(Element& touched) {
  if (isOnKeyboard(touched)) {
    tapKey(touched);
  } else if (touched.type != ElementType::keyboard && !behave(touched) && !answerOwnAlert(touched)) {
    carryOut(reactionToTouch(RuleEvent::tap, touched), std::string(front_));
  }
}

bool Phone::behave(Element& touched) {
  if (!touched.isEnabled) {
    return false;
  }
  if (takesText(touched.type)) {
    if (front().focused != &touched) {
      front().beginEditing(touched, description_.size);
      ++revision_;
    }
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

/// What the application does on the tap, where no rule is about the answer, it does when the alert is gone.
bool Phone::answerOwnAlert(const Element& touched) {
  RunningApplication& application = front();
  const auto isAround = [&](const RunningApplication::OwnAlert& alert) {
    const Element* const window = elementNumbered(*application.screen, alert.window);
    return window != nullptr && isWithin(touched, *window);
  };
  const auto answered = std::find_if(application.alerts.begin(), application.alerts.end(), isAround);
  if (touched.type != ElementType::button || !touched.isEnabled || answered == application.alerts.end()) {
    return false;
  }
  if (!answered->answer.empty()) {
    values_.set(answered->answer, touched.label);
  }
  Occurrence answer = occurrence(RuleEvent::answer, &touched);
  answer.alert = touched.parent();
  Reaction reaction = firstReaction(application.description->rules, answer, values_);
  if (reaction.rule == nullptr) {
    reaction = reactionToTouch(RuleEvent::tap, touched);
  }
  application.remove(*elementNumbered(*application.screen, answered->window));
  application.alerts.erase(answered);
  ++revision_;
  carryOut(reaction, std::string(front_));
  return true;
}

void Phone::tapKey(const Element& key) {
  if (!key.isEnabled) {
    return;
  }
  const std::string bundleIdentifier = front_;
  // The key may be gone once it has had its effect.
  const Reaction reaction = reactionTo(RuleEvent::tap, key);
  const std::optional<std::string> typed = typedBy(key);
  const KeyboardPlane plane = planeAfter(key, front().keyboardPlane);
  if (typed == "\n" && front().focused != nullptr) {
    typeReturn();
    return;
  }
  if (typed && front().focused != nullptr) {
    typeText(*typed);
  }
  RunningApplication* const application = find(bundleIdentifier);
  if (application != nullptr && application->keyboard != nullptr && plane != application->keyboardPlane) {
    application->keyboardPlane = plane;
    showPlane(*application->keyboard, plane);
    ++revision_;
  }
  carryOut(reaction, bundleIdentifier);
}

bool Phone::type(const Element& within, std::string_view text) {
  const Element* const focused = front().focused;
  if (focused == nullptr || !isWithin(*focused, within)) {
    return false;
  }
  typeText(text);
  return true;
}

/// Character by character, since rules about the text see each of them.
void Phone::typeText(std::string_view text) {
  const std::string bundleIdentifier = front_;
  for (const std::string_view character : characters(text)) {
    if (front_ != bundleIdentifier || front().focused == nullptr) {
      return;
    }
    if (character == "\n" || character == "\r" || character == "\r\n") {
      typeReturn();
      continue;
    }
    Element& field = *front().focused;
    if (character == "\b" || character == "\x7F") {
      deleteLastCharacter(field);
    } else {
      insertText(field, character);
    }
    ++revision_;
    carryOut(reactionTo(RuleEvent::text, field), bundleIdentifier);
  }
}

/// What an application does on a tap of the return key, it does however the key is pressed.
void Phone::typeReturn() {
  RunningApplication& application = front();
  const Element* const key = returnKeyIn(application.keyboard == nullptr ? *application.screen : *application.keyboard);
  const Reaction toKey = key == nullptr || !key->isEnabled ? Reaction() : reactionTo(RuleEvent::tap, *key);
  Reaction toText;
  if (holdsLines(application.focused->type)) {
    insertText(*application.focused, "\n");
    toText = reactionTo(RuleEvent::text, *application.focused);
  } else {
    application.endEditing();
  }
  ++revision_;
  const std::string bundleIdentifier = front_;
  carryOut(toText, bundleIdentifier);
  carryOut(toKey, bundleIdentifier);
}

Occurrence Phone::occurrence(RuleEvent event, const Element* element) const {
  return {.event = event, .screen = running_.at(front_).screenName, .element = element};
}

Reaction Phone::reactionTo(RuleEvent event, const Element& element) const {
  return firstReaction(running_.at(front_).description->rules, occurrence(event, &element), values_);
}

Reaction Phone::reactionToTouch(RuleEvent event, const Element& touched) const {
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

void Phone::carryOut(const Reaction& reaction, const std::string& bundleIdentifier) {
  if (reaction.rule != nullptr) {
    carryOut(reaction.rule->effects, {.application = bundleIdentifier, .subject = reaction.subject});
  }
}

void Phone::carryOut(const std::vector<Reaction>& reactions, const std::string& bundleIdentifier) {
  for (const Reaction& reaction : reactions) {
    carryOut(reaction, bundleIdentifier);
  }
}

void Phone::carryOut(const std::vector<Effect>& effects, const Context& context) {
  if (nesting_ == DEEPEST_NESTING) {
    failForEndlessRules(context.application);
  }
  const Temporarily deeper(nesting_, nesting_ + 1);
  for (const Effect& effect : effects) {
    if (find(context.application) == nullptr) {
      return;
    }
    std::visit([&](const auto& one) { carryOut(one, context); }, effect.what);
    // Before the next effect, in which time may pass.
    ++revision_;
  }
}

void Phone::carryOut(const ShowScreen& effect, const Context& context) {
  showScreen(context.application, effect.screen);
}

void Phone::carryOut(const SetValues& effect, const Context& context) {
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

void Phone::carryOut(const AddToValues& effect, const Context&) {
  for (const auto& [name, amount] : effect.amounts) {
    values_.add(name, amount);
  }
}

void Phone::carryOut(const ChangeElements& effect, const Context& context) {
  for (Element* const element : elementsOf(running_.at(context.application), effect.elements)) {
    change(*element, effect, values_);
  }
}

void Phone::carryOut(const MoveElements& effect, const Context& context) {
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

void Phone::carryOut(const InsertElements& effect, const Context& context) {
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

void Phone::carryOut(const RemoveElements& effect, const Context& context) {
  std::vector<std::uint64_t> numbers;
  for (const Element* const element : elementsOf(running_.at(context.application), effect.elements)) {
    numbers.push_back(element->number);
  }
  removeElements(context.application, numbers);
}

void Phone::removeElements(const std::string& bundleIdentifier, const std::vector<std::uint64_t>& numbers) {
  RunningApplication& application = running_.at(bundleIdentifier);
  for (const std::uint64_t number : numbers) {
    // It may have gone with one that it was in.
    if (Element* const element = elementNumbered(*application.screen, number)) {
      application.remove(*element);
      ++revision_;
    }
  }
}

void Phone::carryOut(const FocusElement& effect, const Context& context) {
  RunningApplication& application = running_.at(context.application);
  const std::vector<Element*> found = elementsOf(application, effect.elements);
  if (front_ == context.application && !found.empty() && takesText(found.front()->type) && found.front()->isEnabled) {
    application.beginEditing(*found.front(), description_.size);
  }
}

void Phone::carryOut(const RaiseAlert& effect, const Context& context) {
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

void Phone::carryOut(const OpenApplication& effect, const Context&) {
  activate(effect.bundleIdentifier);
}

void Phone::carryOut(const OpenAddress& effect, const Context&) {
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
  if (const RunningApplication* const application = find(opener->bundleIdentifier)) {
    const Occurrence opened{.event = RuleEvent::address, .screen = application->screenName};
    carryOut(firstReaction(opener->rules, opened, values_), opener->bundleIdentifier);
  }
}

void Phone::carryOut(const TerminateApplication& effect, const Context&) {
  terminate(effect.bundleIdentifier);
}

void Phone::carryOut(const Later& effect, const Context& context) {
  agenda_.emplace(moment() + length(effect.after),
                  Task{.application = context.application, .screen = 0, .what = PutOff{&effect, context.subject}});
}

std::vector<Element*> Phone::elementsOf(RunningApplication& application, const PredicateEvaluator& predicate) const {
  std::vector<Element*> found = elementsMatching(*application.screen, predicate);
  std::erase_if(found, [&](const Element* element) {
    const auto isOfAlert = [element](const SystemAlert& alert) { return isWithin(*element, *alert.window); };
    return (application.keyboard != nullptr && isWithin(*element, *application.keyboard)) ||
           std::any_of(alerts_.begin(), alerts_.end(), isOfAlert);
  });
  return found;
}

void Phone::pressHome() {
  sleep(description_.buttonDelay);
  setFront(description_.home);
}

void Phone::changeVolume(int steps) {
  // One press moves the volume by a sixteenth.
  constexpr double STEP = 100.0 / 16;
  sleep(description_.buttonDelay);
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
