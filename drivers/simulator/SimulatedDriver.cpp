#include "drivers/simulator/SimulatedDriver.h"

#include <utility>

#include "drivers/simulator/ElementAttributes.h"
#include "drivers/simulator/ElementDescription.h"
#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/Rectangles.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/uiautomation/QueryChain.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::simulator {

namespace {

/// How often a wait looks at the screen.
constexpr std::chrono::milliseconds POLL_INTERVAL(50);

/// An alert of the system process, by its number.
class AlertHandle final : public ElementHandle {
 public:
  explicit AlertHandle(const SystemAlert& alert) : number_(alert.number), title_(alert.alert().label) {}

  std::uint64_t number() const { return number_; }
  std::string description() const override { return "the system alert \"" + title_ + "\""; }

 private:
  std::uint64_t number_;
  std::string title_;
};

}  // namespace

/// What is being done to what, for the texts of errors.
class SimulatedDriver::Operation {
 public:
  /// Begins it: what has come due on the phone until now has happened.
  template <class Target>
  Operation(std::string_view name, const Target& target, Phone& phone)
      : name_(name), describe_([&target] { return describe(target); }) {
    guarded([&phone] { phone.passTime(); });
  }

  /// What `ask` answers; what a predicate or a rule can get wrong becomes a failure of this operation.
  template <class Ask>
  auto guarded(Ask ask) const {
    try {
      return ask();
    } catch (const RegularExpressionError& error) {
      fail(error.what());
    } catch (const UnknownAttributeError& error) {
      fail(error.what());
    } catch (const EndlessRulesError& error) {
      fail(error.what());
    }
  }

  [[noreturn]] void fail(const std::string& reason) const {
    throw UIAutomationError(std::string(name_) + " of " + describe_() + " on the simulated phone: " + reason);
  }

 private:
  static std::string describe(const std::string& bundleIdentifier) {
    return "the application \"" + bundleIdentifier + "\"";
  }
  static std::string describe(const PhoneDescription& phone) { return "the phone \"" + phone.name + "\""; }
  static std::string describe(XCUIDeviceButton) { return "a button"; }
  static std::string describe(const XCUIElementQuery& query) { return quobrak::describe(query); }
  static std::string describe(const XCUIElement& element) { return quobrak::describe(element); }
  static std::string describe(const XCUICoordinate& point) { return quobrak::describe(point); }

  std::string_view name_;
  std::function<std::string()> describe_;
};

SimulatedDriver::SimulatedDriver(PhoneDescription phone, Clock& clock)
    : clock_(clock),
      phone_(std::move(phone), clock),
      queries_([this](const Element& element) { return isHittableNow(element); }, [this] { return phone_.revision(); }),
      painter_(phone_.description().size, phone_.description().scale) {}

void SimulatedDriver::launch(const std::string& bundleIdentifier) {
  const Operation operation("launch", bundleIdentifier, phone_);
  if (!phone_.isInstalled(bundleIdentifier)) {
    std::string installed;
    for (const auto& [identifier, application] : phone_.description().applications) {
      installed += (installed.empty() ? "" : ", ") + identifier;
    }
    operation.fail("it is not installed; installed are " + installed);
  }
  operation.guarded([&] { phone_.launch(bundleIdentifier); });
}

void SimulatedDriver::terminate(const std::string& bundleIdentifier) {
  const Operation operation("terminate", bundleIdentifier, phone_);
  operation.guarded([&] { phone_.terminate(bundleIdentifier); });
}

const Element* SimulatedDriver::rootOf(const QueryRoot& root) const {
  if (const auto* const application = std::get_if<ApplicationRoot>(&root)) {
    const RunningApplication* const running = phone_.running(application->bundleIdentifier);
    return running == nullptr ? nullptr : running->screen.get();
  }
  const auto handle =
      std::dynamic_pointer_cast<const AlertHandle>(std::get<std::shared_ptr<const ElementHandle>>(root));
  const SystemAlert* const alert = phone_.alert();
  const bool isUp = handle != nullptr && alert != nullptr && alert->number == handle->number();
  return isUp ? &alert->alert() : nullptr;
}

const Element* SimulatedDriver::found(const Operation& operation, const XCUIElement& element) const {
  const Element* const root = rootOf(element.query().root());
  return root == nullptr ? nullptr : operation.guarded([&] { return queries_.element(element, *root); });
}

const Element& SimulatedDriver::required(const Operation& operation, const XCUIElement& element) const {
  const Element* const existing = found(operation, element);
  if (existing == nullptr) {
    operation.fail("it does not exist");
  }
  return *existing;
}

/// What is shown behind the application in front cannot be touched. An alert of the system process is no hindrance: it
/// is dealt with before each action.
bool SimulatedDriver::isHittableNow(const Element& element) const {
  const std::vector<const Element*> layers = phone_.layers();
  const bool isOnScreen = isWithin(element, *layers.front());
  const bool isInAlert = phone_.alert() != nullptr && isWithin(element, *phone_.alert()->window);
  return (isOnScreen || isInAlert) && simulator::isHittable(element);
}

std::vector<const Element*> SimulatedDriver::elements(const XCUIElementQuery& query) {
  const Operation operation("count", query, phone_);
  const Element* const root = rootOf(query.root());
  if (root == nullptr) {
    return {};
  }
  return operation.guarded([&] { return queries_.elements(query, *root); });
}

bool SimulatedDriver::exists(const XCUIElement& element) {
  return found({"exists", element, phone_}, element) != nullptr;
}

std::string SimulatedDriver::label(const XCUIElement& element) {
  const Element* const existing = found({"label", element, phone_}, element);
  return existing == nullptr ? "" : existing->label;
}

std::string SimulatedDriver::identifier(const XCUIElement& element) {
  const Element* const existing = found({"identifier", element, phone_}, element);
  return existing == nullptr ? "" : existing->identifier;
}

ElementValue SimulatedDriver::value(const XCUIElement& element) {
  const Element* const existing = found({"value", element, phone_}, element);
  return existing != nullptr && existing->value ? ElementValue(*existing->value) : ElementValue();
}

Rect SimulatedDriver::frame(const XCUIElement& element) {
  const Element* const existing = found({"frame", element, phone_}, element);
  return existing == nullptr ? Rect{} : existing->frame;
}

bool SimulatedDriver::isHittable(const XCUIElement& element) {
  const Element* const existing = found({"isHittable", element, phone_}, element);
  return existing != nullptr && isHittableNow(*existing);
}

XCTWaiterResult SimulatedDriver::waitForExistence(const XCUIElement& element, Seconds timeout) {
  return waitUntil(clock_, timeout, POLL_INTERVAL, [&] {
    return found({"waitForExistence", element, phone_}, element) != nullptr;
  });
}

XCTWaiterResult SimulatedDriver::waitForPredicate(const XCUIElement& element, const NSPredicate& predicate,
                                                  Seconds timeout) {
  const Operation operation("waitForPredicate", element, phone_);
  const std::function<bool(const Element&)> hittable = [this](const Element& tested) { return isHittableNow(tested); };
  return operation.guarded([&] {
    const PredicateEvaluator evaluator(predicate);
    return waitUntil(clock_, timeout, POLL_INTERVAL, [&] {
      phone_.passTime();
      return evaluator.evaluate(ElementAttributes(found(operation, element), hittable));
    });
  });
}

void SimulatedDriver::tap(const XCUIElement& element) {
  touch({"tap", element, phone_}, element, Seconds::zero());
}

void SimulatedDriver::press(const XCUIElement& element, Seconds duration) {
  touch({"press", element, phone_}, element, duration);
}

void SimulatedDriver::touch(const Operation& operation, const XCUIElement& element, Seconds duration) {
  dealWithAlerts(operation, element);
  const std::optional<Point> point = hitPoint(required(operation, element));
  if (!point) {
    operation.fail("no part of it is on the screen");
  }
  operation.guarded([&] { phone_.touch(*point, duration); });
}

void SimulatedDriver::typeText(const XCUIElement& element, std::string_view text) {
  const Operation operation("typeText", element, phone_);
  dealWithAlerts(operation, element);
  if (!operation.guarded([&] { return phone_.type(required(operation, element), text); })) {
    operation.fail("neither it nor anything in it has the keyboard's focus");
  }
}

void SimulatedDriver::swipe(const XCUIElement& element, SwipeDirection direction) {
  const Operation operation("swipe", element, phone_);
  dealWithAlerts(operation, element);
  const Element& swiped = required(operation, element);
  if (!hitPoint(swiped)) {
    operation.fail("no part of it is on the screen");
  }
  operation.guarded([&] { phone_.swipe(swiped, direction); });
}

void SimulatedDriver::tap(const XCUICoordinate& point) {
  touch({"tap", point, phone_}, point, Seconds::zero());
}

void SimulatedDriver::press(const XCUICoordinate& point, Seconds duration) {
  touch({"press", point, phone_}, point, duration);
}

void SimulatedDriver::touch(const Operation& operation, const XCUICoordinate& point, Seconds duration) {
  dealWithAlerts(operation, point.referencedElement());
  const Point onScreen = screenPoint(operation, point);
  operation.guarded([&] { phone_.touch(onScreen, duration); });
}

Point SimulatedDriver::screenPoint(const Operation& operation, const XCUICoordinate& point) const {
  return pointAt(required(operation, point.referencedElement()).frame, point.normalizedOffset());
}

void SimulatedDriver::pressThenDrag(const XCUICoordinate& from, Seconds duration, const XCUICoordinate& to) {
  const Operation operation("pressThenDrag", from, phone_);
  dealWithAlerts(operation, from.referencedElement());
  const Point start = screenPoint(operation, from);
  const Point end = screenPoint({"pressThenDrag", to, phone_}, to);
  operation.guarded([&] { phone_.drag(start, duration, end); });
}

void SimulatedDriver::pressButton(XCUIDeviceButton button) {
  constexpr int ONE_STEP = 1;
  const Operation operation("pressButton", button, phone_);
  operation.guarded([&] {
    switch (button) {
      case XCUIDeviceButton::home:
        phone_.pressHome();
        break;
      case XCUIDeviceButton::volumeUp:
        phone_.changeVolume(ONE_STEP);
        break;
      case XCUIDeviceButton::volumeDown:
        phone_.changeVolume(-ONE_STEP);
        break;
    }
  });
}

std::optional<Data> SimulatedDriver::screenshot() {
  const Operation operation("screenshot", phone_.description(), phone_);
  if (!picture_ || pictureRevision_ != phone_.revision()) {
    picture_ = painter_.png(phone_.layers());
    pictureRevision_ = phone_.revision();
  }
  return picture_;
}

std::string SimulatedDriver::debugDescription(const XCUIElement& element) {
  const Operation operation("debugDescription", element, phone_);
  const Element* const root = rootOf(element.query().root());
  if (root == nullptr) {
    return queryChain(element);
  }
  const auto stages = operation.guarded([&] { return queries_.stages(element, *root); });
  if (stages.back().empty()) {
    return queryChain(element);
  }
  const auto* const application = std::get_if<ApplicationRoot>(&element.query().root());
  const RunningApplication* const running =
      phone_.running(application == nullptr ? phone_.description().home : application->bundleIdentifier);
  return simulator::debugDescription(element, stages, running->processIdentifier);
}

InterruptionMonitorToken SimulatedDriver::addInterruptionMonitor(std::string_view description,
                                                                 InterruptionHandler handler) {
  return monitors_.add(description, std::move(handler));
}

void SimulatedDriver::removeInterruptionMonitor(InterruptionMonitorToken token) {
  monitors_.remove(token);
}

void SimulatedDriver::dealWithAlerts(const Operation& operation, const XCUIElement& target) {
  monitors_.dealWith([&] { return isInAlert(operation, target) ? std::nullopt : blockingAlert(); });
}

bool SimulatedDriver::isInAlert(const Operation& operation, const XCUIElement& target) const {
  const Element* const element = phone_.alert() == nullptr ? nullptr : found(operation, target);
  return element != nullptr && isWithin(*element, *phone_.alert()->window);
}

std::optional<XCUIElement> SimulatedDriver::blockingAlert() {
  const SystemAlert* const alert = phone_.alert();
  if (alert == nullptr) {
    return std::nullopt;
  }
  if (alertHandle_ == nullptr || alertHandleNumber_ != alert->number) {
    alertHandle_ = std::make_shared<const AlertHandle>(*alert);
    alertHandleNumber_ = alert->number;
  }
  return XCUIElement(QueryRoot(alertHandle_));
}

}  // namespace quobrak::simulator
