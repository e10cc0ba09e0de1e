#include "drivers/webdriver/WebDriverDriver.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "drivers/webdriver/Base64.h"
#include "drivers/webdriver/ClassChain.h"
#include "drivers/webdriver/CommandError.h"
#include "drivers/webdriver/CurlTransport.h"
#include "drivers/webdriver/ElementAttributes.h"
#include "drivers/webdriver/ElementDescription.h"
#include "drivers/webdriver/WirePredicate.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/uiautomation/QueryChain.h"
#include "platform/uiautomation/UIAutomationError.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::webdriver {

namespace {

/// A look at a real screen takes some tenths of a second; more of them would only load the phone that is measured.
constexpr std::chrono::milliseconds POLL_INTERVAL(250);

/// Characters that a server types in a second.
constexpr int TYPING_SPEED = 60;

/// Any press is over before that.
constexpr Seconds LONGEST = std::chrono::hours(24);

Seconds bounded(Seconds duration) {
  return duration > Seconds::zero() ? std::min(duration, LONGEST) : Seconds::zero();
}

bool isIn(const Rect& rect, Point point) {
  return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width && point.y >= rect.origin.y &&
         point.y < rect.origin.y + rect.size.height;
}

Point nearestIn(const Rect& rect, Point point) {
  return {std::clamp(point.x, rect.origin.x, rect.origin.x + rect.size.width),
          std::clamp(point.y, rect.origin.y, rect.origin.y + rect.size.height)};
}

std::string_view nameOf(SwipeDirection direction) {
  switch (direction) {
    case SwipeDirection::up:
      return "up";
    case SwipeDirection::down:
      return "down";
    case SwipeDirection::left:
      return "left";
    case SwipeDirection::right:
      return "right";
  }
  return "";
}

std::string_view nameOf(XCUIDeviceButton button) {
  switch (button) {
    case XCUIDeviceButton::home:
      return "home";
    case XCUIDeviceButton::volumeUp:
      return "volumeup";
    case XCUIDeviceButton::volumeDown:
      return "volumedown";
  }
  return "";
}

/// An address without the user and the password that it may hold.
std::string withoutCredentials(const std::string& url) {
  const std::size_t scheme = url.find("://");
  const std::size_t start = scheme == std::string::npos ? 0 : scheme + 3;
  const std::size_t end = url.find_first_of("/?#", start);
  // A password may hold that sign too.
  const std::size_t at = std::string_view(url).substr(0, end).rfind('@');
  return at == std::string::npos || at < start ? url : url.substr(0, start) + url.substr(at + 1);
}

JSONValue::Object at(Point point) {
  return {{"x", point.x}, {"y", point.y}};
}

/// A part of a session's commands.
CommandInSession get(std::string path) {
  return [path = std::move(path)](const std::string& session) {
    return Command{.method = "GET", .path = "/session/" + session + path, .body = {}};
  };
}

CommandInSession post(std::string path, JSONValue::Object body) {
  return [path = std::move(path), body = std::move(body)](const std::string& session) {
    return Command{.method = "POST", .path = "/session/" + session + path, .body = body};
  };
}

std::string textIn(const JSONValue& value) {
  const auto* const text = std::get_if<std::string>(&value.variant());
  return text == nullptr ? "" : *text;
}

}  // namespace

JSONValue::Object usualCapabilities(Dialect dialect) {
  if (dialect == Dialect::wda) {
    return {};
  }
  return {{"platformName", "iOS"},
          {"appium:automationName", "XCUITest"},
          {"appium:newCommandTimeout", 0},
          // Without a limit the server would wait for ever for a phone that hangs.
          {"appium:wdaConnectionTimeout", 120000},
          {"appium:skipLogCapture", true}};
}

/// What is being done to what, for the texts of errors.
class WebDriverDriver::Operation {
 public:
  Operation(std::string_view name, std::function<std::string()> target, const std::string& where)
      : name_(name), target_(std::move(target)), where_(where) {}

  /// What `work` answers; what it is known to raise becomes a failure of this operation.
  template <class Work>
  auto guarded(Work work) const {
    try {
      return work();
    } catch (const CommandError& error) {
      fail(error.what());
    } catch (const UnaskableQuery& error) {
      fail(error.what());
    } catch (const RegularExpressionError& error) {
      fail(error.what());
    }
  }

  [[noreturn]] void fail(const std::string& reason) const {
    throw UIAutomationError(std::string(name_) + " of " + target_() + " " + where_ + ": " + reason);
  }

 private:
  std::string_view name_;
  std::function<std::string()> target_;
  const std::string& where_;
};

WebDriverDriver::WebDriverDriver(const Server& server, Clock& clock)
    : WebDriverDriver(server, std::make_unique<CurlTransport>(server.url, server.limits.connect), clock) {}

WebDriverDriver::WebDriverDriver(const Server& server, std::unique_ptr<Transport> transport, Clock& clock)
    : where_("over WebDriver at " + withoutCredentials(server.url)),
      clock_(clock),
      session_(Connection(std::move(transport)), server.dialect, server.capabilities, server.limits),
      applications_(session_, clock),
      lookups_(session_, applications_) {}

WebDriverDriver::Operation WebDriverDriver::operation(std::string_view name,
                                                      std::function<std::string()> target) const {
  return {name, std::move(target), where_};
}

template <class Target>
WebDriverDriver::Operation WebDriverDriver::operationOn(std::string_view name, const Target& target) const {
  return operation(name, [&target] { return describe(target); });
}

// Applications.

void WebDriverDriver::launch(const std::string& bundleIdentifier) {
  lookups_.forget();
  operation("launch", [&] { return describe(XCUIElement(QueryRoot(ApplicationRoot{bundleIdentifier}))); }).guarded([&] {
    applications_.launch(bundleIdentifier);
  });
}

void WebDriverDriver::terminate(const std::string& bundleIdentifier) {
  lookups_.forget();
  operation("terminate", [&] {
    return describe(XCUIElement(QueryRoot(ApplicationRoot{bundleIdentifier})));
  }).guarded([&] { applications_.terminate(bundleIdentifier); });
}

// Asking.

std::size_t WebDriverDriver::count(const XCUIElementQuery& query) {
  return operationOn("count", query).guarded([&] { return lookups_.all(query).size(); });
}

template <class Answer, class Ask>
Answer WebDriverDriver::asked(std::string_view name, const XCUIElement& element, const Ask& ask) {
  return operationOn(name, element).guarded([&] {
    const std::optional<FoundElement> found = lookups_.one(element);
    return found ? Answer(ask(*found)) : Answer();
  });
}

bool WebDriverDriver::exists(const XCUIElement& element) {
  return asked<bool>("exists", element, [](const FoundElement&) { return true; });
}

std::string WebDriverDriver::label(const XCUIElement& element) {
  return asked<std::string>("label", element, [](const FoundElement& found) { return found.label; });
}

std::string WebDriverDriver::identifier(const XCUIElement& element) {
  return asked<std::string>("identifier", element, [](const FoundElement& found) { return found.identifier; });
}

ElementValue WebDriverDriver::value(const XCUIElement& element) {
  return asked<ElementValue>("value", element, [](const FoundElement& found) { return found.value; });
}

Rect WebDriverDriver::frame(const XCUIElement& element) {
  return asked<Rect>("frame", element, [](const FoundElement& found) { return found.frame; });
}

bool WebDriverDriver::isHittable(const XCUIElement& element) {
  return asked<bool>("isHittable", element,
                     [&](const FoundElement& found) { return askWhetherHittable(element, found); });
}

/// The look-up's own answer comes from a coarser picture of the screen: where it says no, the element itself is asked.
bool WebDriverDriver::askWhetherHittable(const XCUIElement& element, const FoundElement& found) {
  if (found.isHittable) {
    return true;
  }
  try {
    return truthOf(session_.ask(get("/element/" + found.id + "/attribute/hittable"), Session::Names::anElement));
  } catch (const CommandError& error) {
    if (error.fault() != Fault::staleElement) {
      throw;
    }
  }
  lookups_.forget();
  const std::optional<FoundElement> again = lookups_.one(element);
  return again && again->isHittable;
}

// Waiting.

XCTWaiterResult WebDriverDriver::waitForExistence(const XCUIElement& element, Seconds timeout) {
  const Operation waiting = operationOn("waitForExistence", element);
  const XCTWaiterResult result = waitUntil(clock_, timeout, POLL_INTERVAL, [&] {
    lookups_.forget();
    return waiting.guarded([&] { return lookups_.one(element).has_value(); });
  });
  lookups_.forget();
  return result;
}

XCTWaiterResult WebDriverDriver::waitForPredicate(const XCUIElement& element, const NSPredicate& predicate,
                                                  Seconds timeout) {
  const Operation waiting = operationOn("waitForPredicate", element);
  return waiting.guarded([&] {
    requireAskable(predicate);
    const PredicateEvaluator evaluator(predicate);
    const XCTWaiterResult result = waitUntil(clock_, timeout, POLL_INTERVAL, [&] {
      lookups_.forget();
      const std::optional<FoundElement> found = lookups_.one(element);
      return evaluator.evaluate(ElementAttributes(found, [&] { return found && askWhetherHittable(element, *found); }));
    });
    lookups_.forget();
    return result;
  });
}

// Acting on an element.

FoundElement WebDriverDriver::required(const Operation& operation, const XCUIElement& element) {
  const std::optional<FoundElement> found = lookups_.one(element);
  if (!found) {
    operation.fail("it does not exist");
  }
  return *found;
}

template <class Act>
void WebDriverDriver::actOn(const Operation& operation, const XCUIElement& element, const Act& act) {
  operation.guarded([&] {
    dealWithAlerts(element);
    const FoundElement found = required(operation, element);
    lookups_.forget();
    try {
      act(found);
      return;
    } catch (const CommandError& error) {
      if (error.fault() != Fault::staleElement) {
        throw;
      }
    }
    const FoundElement again = required(operation, element);
    lookups_.forget();
    act(again);
  });
}

void WebDriverDriver::carryOut(Verb verb, JSONValue::Object arguments, Seconds duration, const std::string& element) {
  const auto ownTime = std::chrono::ceil<std::chrono::milliseconds>(duration);
  session_.act(
      [&](const std::string& session) { return commandFor(session_.dialect(), verb, session, arguments, element); },
      session_.limits().command + ownTime);
}

void WebDriverDriver::tap(const XCUIElement& element) {
  actOn(operationOn("tap", element), element, [&](const FoundElement& found) {
    session_.act(post("/element/" + found.id + "/click", {}), session_.limits().command);
  });
}

void WebDriverDriver::press(const XCUIElement& element, Seconds duration) {
  const Seconds held = bounded(duration);
  actOn(operationOn("press", element), element, [&](const FoundElement& found) {
    carryOut(Verb::holdElement, {{"duration", held.count()}}, held, found.id);
  });
}

void WebDriverDriver::typeText(const XCUIElement& element, std::string_view text) {
  const Operation typing = operationOn("typeText", element);
  actOn(typing, element, [&](const FoundElement& found) { type(typing, element, found, text); });
}

/// A server would tap an element without the focus, which the platform does not.
void WebDriverDriver::type(const Operation& operation, const XCUIElement& element, const FoundElement& found,
                           std::string_view text) {
  lookups_.lookInto(element.query().root());
  const std::optional<FoundElement> active = focused();
  if (!active || !isOrContains(element, found, *active)) {
    operation.fail("neither it nor anything in it has the keyboard's focus");
  }
  if (text.empty()) {
    return;
  }
  const auto typingTime = std::chrono::seconds(static_cast<std::int64_t>(text.size()) / TYPING_SPEED);
  session_.act(post("/element/" + active->id + "/value", {{"text", text}}), session_.limits().command + typingTime);
}

std::optional<FoundElement> WebDriverDriver::focused() {
  try {
    const JSONValue reply = session_.ask(get("/element/active"));
    return foundElements(JSONValue::Array{reply}).front();
  } catch (const CommandError& error) {
    if (error.fault() != Fault::noSuchElement) {
      throw;
    }
    return std::nullopt;
  }
}

bool WebDriverDriver::isOrContains(const XCUIElement& element, const FoundElement& found, const FoundElement& active) {
  const bool isApplication = !element.pick() && std::holds_alternative<ApplicationRoot>(element.query().root());
  if (isApplication || found.id == active.id) {
    return true;
  }
  const std::vector<FoundElement> below = lookups_.below(found, active.type);
  return std::any_of(below.begin(), below.end(),
                     [&active](const FoundElement& candidate) { return candidate.id == active.id; });
}

void WebDriverDriver::swipe(const XCUIElement& element, SwipeDirection direction) {
  actOn(operationOn("swipe", element), element, [&](const FoundElement& found) {
    carryOut(Verb::swipe, {{"direction", nameOf(direction)}}, Seconds::zero(), found.id);
  });
}

// Acting on a point.

Rect WebDriverDriver::screen() {
  if (screenGeneration_ != session_.generation() || screenGeneration_ == 0) {
    screen_ = rectIn(session_.ask(get("/window/rect")));
    if (!(screen_.size.width > 0 && screen_.size.height > 0)) {
      throw CommandError(Fault::nonsense, "the server says that the screen is empty");
    }
    screenGeneration_ = session_.generation();
  }
  return screen_;
}

std::optional<Point> WebDriverDriver::placeOf(const Operation& operation, const XCUICoordinate& point) {
  const Rect frame = required(operation, point.referencedElement()).frame;
  const NormalizedOffset offset = point.normalizedOffset();
  const Point place{frame.origin.x + offset.dx * frame.size.width, frame.origin.y + offset.dy * frame.size.height};
  return std::isfinite(place.x) && std::isfinite(place.y) ? std::optional(place) : std::nullopt;
}

std::optional<Point> WebDriverDriver::onScreen(const Operation& operation, const XCUICoordinate& point) {
  const std::optional<Point> place = placeOf(operation, point);
  return place && isIn(screen(), *place) ? place : std::nullopt;
}

void WebDriverDriver::tap(const XCUICoordinate& point) {
  const Operation tapping = operationOn("tap", point);
  tapping.guarded([&] {
    dealWithAlerts(point.referencedElement());
    const std::optional<Point> place = onScreen(tapping, point);
    lookups_.forget();
    if (place) {
      carryOut(Verb::tapPoint, at(*place), Seconds::zero());
    }
  });
}

void WebDriverDriver::press(const XCUICoordinate& point, Seconds duration) {
  const Operation pressing = operationOn("press", point);
  const Seconds held = bounded(duration);
  pressing.guarded([&] {
    dealWithAlerts(point.referencedElement());
    const std::optional<Point> place = onScreen(pressing, point);
    lookups_.forget();
    if (!place) {
      // A touch that lands on nothing takes its time all the same.
      sleepFor(clock_, held);
      return;
    }
    JSONValue::Object arguments = at(*place);
    arguments.emplace("duration", held.count());
    carryOut(Verb::holdPoint, std::move(arguments), held);
  });
}

void WebDriverDriver::pressThenDrag(const XCUICoordinate& from, Seconds duration, const XCUICoordinate& to) {
  const Operation dragging = operationOn("pressThenDrag", from);
  const Operation dropping = operationOn("pressThenDrag", to);
  const Seconds held = bounded(duration);
  dragging.guarded([&] {
    dealWithAlerts(from.referencedElement());
    const std::optional<Point> start = onScreen(dragging, from);
    const std::optional<Point> end = placeOf(dropping, to);
    lookups_.forget();
    if (!start) {
      sleepFor(clock_, held);
      return;
    }
    // A drag to nowhere is a press that is lifted where it is.
    const Point destination = end ? nearestIn(screen(), *end) : *start;
    carryOut(Verb::drag,
             {{"duration", held.count()},
              {"fromX", start->x},
              {"fromY", start->y},
              {"toX", destination.x},
              {"toY", destination.y}},
             held);
  });
}

// The device.

void WebDriverDriver::pressButton(XCUIDeviceButton button) {
  lookups_.forget();
  operation("pressButton", [] { return "the device"; }).guarded([&] {
    if (button == XCUIDeviceButton::home) {
      applications_.leave();
    }
    carryOut(Verb::pressButton, {{"name", nameOf(button)}}, Seconds::zero());
  });
}

std::optional<Data> WebDriverDriver::screenshot() {
  const Operation taking = operation("screenshot", [] { return "the screen"; });
  return taking.guarded([&]() -> std::optional<Data> {
    const std::string text = textIn(session_.ask(get("/screenshot"), session_.limits().screenshot));
    if (text.empty()) {
      return std::nullopt;
    }
    std::optional<Data> png = decodedBase64(text);
    if (!png) {
      taking.fail("the server sent no base64");
    }
    return png;
  });
}

std::string WebDriverDriver::debugDescription(const XCUIElement& element) {
  return operationOn("debugDescription", element).guarded([&] {
    const std::optional<FoundElement> found = lookups_.one(element);
    return found ? describedBelow(element, *found) : queryChain(element);
  });
}

std::string WebDriverDriver::describedBelow(const XCUIElement& element, const FoundElement& found) {
  const bool isApplication = !element.pick() && std::holds_alternative<ApplicationRoot>(element.query().root());
  if (isApplication) {
    lookups_.lookInto(element.query().root());
    const JSONValue tree = session_.ask(
        [&](const std::string& session) { return commandFor(session_.dialect(), Verb::describeScreen, session, {}); });
    return description(found, textIn(tree)) + queryChain(element);
  }
  return description(found, lookups_.below(found, ElementType::any)) + queryChain(element);
}

// Interruptions.

InterruptionMonitorToken WebDriverDriver::addInterruptionMonitor(std::string_view description,
                                                                 InterruptionHandler handler) {
  return monitors_.add(description, std::move(handler));
}

void WebDriverDriver::removeInterruptionMonitor(InterruptionMonitorToken token) {
  monitors_.remove(token);
}

void WebDriverDriver::dealWithAlerts(const XCUIElement& target) {
  monitors_.dealWith([&] { return alertBlocking(target); });
}

/// Whether what is about to be acted on is the alert or something in it.
bool WebDriverDriver::isPartOf(const FoundElement& alert, const XCUIElement& target) {
  const auto* const application = std::get_if<ApplicationRoot>(&target.query().root());
  if (application != nullptr && application->bundleIdentifier != SYSTEM_PROCESS) {
    return false;
  }
  const std::optional<FoundElement> found = lookups_.one(target);
  if (!found) {
    return false;
  }
  const std::vector<FoundElement> inAlert = lookups_.below(alert, found->type);
  return found->id == alert.id || std::any_of(inAlert.begin(), inAlert.end(), [&found](const FoundElement& candidate) {
           return candidate.id == found->id;
         });
}

/// An alert of any kind, at the price of one exchange.
bool WebDriverDriver::mayAnAlertBeUp() {
  try {
    if (session_.dialect() == Dialect::wda) {
      // Outside a session it finds out by itself what is in front.
      session_.askWithoutSession({.method = "GET", .path = "/alert/text", .body = {}});
    } else {
      session_.pin(SYSTEM_PROCESS);
      session_.ask(get("/alert/text"));
    }
    return true;
  } catch (const CommandError& error) {
    if (error.fault() != Fault::noSuchAlert) {
      throw;
    }
    return false;
  }
}

std::optional<XCUIElement> WebDriverDriver::alertBlocking(const XCUIElement& target) {
  const std::optional<FoundElement> alert = mayAnAlertBeUp() ? lookups_.systemAlert() : std::nullopt;
  if (!alert || isPartOf(*alert, target)) {
    return std::nullopt;
  }
  if (alertHandle_ == nullptr || alertHandle_->id() != alert->id) {
    alertHandle_ = std::make_shared<const AlertHandle>(alert->id, alert->label);
  }
  return XCUIElement(QueryRoot(alertHandle_));
}

}  // namespace quobrak::webdriver
