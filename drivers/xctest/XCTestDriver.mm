#import "drivers/xctest/XCTestDriver.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "drivers/xctest/PredicateFault.h"
#include "platform/uiautomation/QueryChain.h"
#include "platform/uiautomation/Waiting.h"

namespace quobrak::xctest {

namespace {

/// How often a wait that the framework cannot do looks at the screen.
constexpr std::chrono::milliseconds POLL_INTERVAL(250);

/// Long enough for any wait and any press, and a time that the platform can still count with.
constexpr Seconds LONGEST = std::chrono::hours(24 * 365 * 10);

/// The application that shows the home screen, of which the frame is the screen's.
constexpr const char* HOME = "com.apple.springboard";

std::string nameOf(const std::string& bundleIdentifier) {
  return "the application \"" + bundleIdentifier + '"';
}

NSTimeInterval saturated(Seconds duration) {
  return duration > Seconds::zero() ? std::min(duration, LONGEST).count() : 0;
}

Rect rectOf(CGRect rect) {
  return {{rect.origin.x, rect.origin.y}, {rect.size.width, rect.size.height}};
}

bool contains(const Rect& rect, Point point) {
  return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width && point.y >= rect.origin.y &&
         point.y < rect.origin.y + rect.size.height;
}

Point pointAt(const Rect& rect, NormalizedOffset offset) {
  return {rect.origin.x + offset.dx * rect.size.width, rect.origin.y + offset.dy * rect.size.height};
}

ElementValue valueOf(id value) {
  if (value == nil) {
    return {};
  }
  if ([value isKindOfClass:[NSString class]]) {
    return textOf(static_cast<NSString*>(value));
  }
  return OtherValue{};
}

void swipe(::XCUIElement* element, SwipeDirection direction) {
  switch (direction) {
    case SwipeDirection::up:
      return [element swipeUp];
    case SwipeDirection::down:
      return [element swipeDown];
    case SwipeDirection::left:
      return [element swipeLeft];
    case SwipeDirection::right:
      return [element swipeRight];
  }
}

/// Whether the framework itself can wait for the element: what it is to look for does not change meanwhile.
bool isForTheFramework(const LocatedElement& located, const XCUIElement& element) {
  const auto& steps = element.query().steps();
  const bool isResolvedByThePlatform = std::all_of(steps.begin(), steps.end(), [](const QueryStep& step) {
    const auto* const matching = std::get_if<MatchingPredicateStep>(&step);
    return matching == nullptr || !asksFor(matching->predicate, "hittable");
  });
  return isResolvedByThePlatform && located.element != nil &&
         (located.application == nil || isRunning(located.application));
}

Ref<QuobrakElementAttributes*> attributesOf(const LocatedElement& located) {
  return Ref<QuobrakElementAttributes*>::adopting([[QuobrakElementAttributes alloc] initWithLocated:located]);
}

XCTWaiterResult waitInTheFramework(::NSPredicate* predicate, QuobrakElementAttributes* attributes,
                                   NSTimeInterval timeout) {
  const auto expectation =
      Ref<::XCTNSPredicateExpectation*>::adopting([[::XCTNSPredicateExpectation alloc] initWithPredicate:predicate
                                                                                                  object:attributes]);
  const auto waiter = Ref<::XCTWaiter*>::adopting([[::XCTWaiter alloc] init]);
  return static_cast<XCTWaiterResult>([waiter.get() waitForExpectations:@[ expectation.get() ] timeout:timeout]);
}

}  // namespace

/// Does what may make the framework record a failure, which becomes one of the operation. Whether the framework ends a
/// test for a failure that was kept from it is not documented: so what it raises then is passed over too.
template <class Action>
void XCTestDriver::keepingFailures(const Operation& operation, Action action) {
  NSString* failure = nil;
  [testCase_.get() beginKeepingFailures];
  @try {
    action();
    failure = [testCase_.get() endKeepingFailures];
  } @catch (NSException*) {
    failure = [testCase_.get() endKeepingFailures];
    if (failure == nil) {
      @throw;
    }
  }
  if (failure != nil) {
    operation.fail(textOf(failure));
  }
}

// Applications.

void XCTestDriver::launch(const std::string& bundleIdentifier) {
  const std::string target = nameOf(bundleIdentifier);
  const Operation launching = operation("launch", target);
  launching.guarded([&] { keepingFailures(launching, [&] { [applications_.named(bundleIdentifier) launch]; }); });
}

void XCTestDriver::terminate(const std::string& bundleIdentifier) {
  const std::string target = nameOf(bundleIdentifier);
  operation("terminate", target).guarded([&] {
    ::XCUIApplication* const application = applications_.named(bundleIdentifier);
    if (isRunning(application)) {
      [application terminate];
    }
  });
}

::XCUIApplication* XCTestDriver::home() {
  return applications_.named(HOME);
}

// Asking.

LocatedElement XCTestDriver::located(const Operation& operation, const XCUIElement& element) {
  return Lookup(operation, applications_).located(element);
}

LocatedElement XCTestDriver::required(const Operation& operation, const XCUIElement& element) {
  const LocatedElement present = located(operation, element);
  if (!isPresent(present)) {
    operation.fail("it does not exist");
  }
  return present;
}

template <class Answer, class Ask>
Answer XCTestDriver::asked(std::string_view name, const XCUIElement& element, Ask ask) {
  const Operation question = operation(name, element);
  return question.guarded([&] {
    const LocatedElement found = located(question, element);
    return isPresent(found) ? Answer(ask(found.element)) : Answer();
  });
}

std::size_t XCTestDriver::count(const XCUIElementQuery& query) {
  const Operation question = operation("count", query);
  return question.guarded([&] { return std::size_t{Lookup(question, applications_).count(query)}; });
}

bool XCTestDriver::exists(const XCUIElement& element) {
  return asked<bool>("exists", element, [](::XCUIElement*) { return true; });
}

std::string XCTestDriver::label(const XCUIElement& element) {
  return asked<std::string>("label", element, [](::XCUIElement* found) { return textOf([found label]); });
}

std::string XCTestDriver::identifier(const XCUIElement& element) {
  return asked<std::string>("identifier", element, [](::XCUIElement* found) { return textOf([found identifier]); });
}

ElementValue XCTestDriver::value(const XCUIElement& element) {
  return asked<ElementValue>("value", element, [](::XCUIElement* found) { return valueOf([found value]); });
}

Rect XCTestDriver::frame(const XCUIElement& element) {
  return asked<Rect>("frame", element, [](::XCUIElement* found) { return rectOf([found frame]); });
}

bool XCTestDriver::isHittable(const XCUIElement& element) {
  return asked<bool>("isHittable", element, [](::XCUIElement* found) { return [found isHittable] != NO; });
}

// Waiting. The framework promises neither a first look at once nor a last one at the deadline, so both are made here.

XCTWaiterResult XCTestDriver::waitForExistence(const XCUIElement& element, Seconds timeout) {
  const Operation waiting = operation("waitForExistence", element);
  const auto isThere = [&] { return isPresent(located(waiting, element)); };
  return waiting.guarded([&] {
    if (isThere()) {
      return XCTWaiterResult::completed;
    }
    const NSTimeInterval rest = saturated(timeout);
    const LocatedElement awaited = located(waiting, element);
    if (!isForTheFramework(awaited, element)) {
      return waitUntil(Clock::shared(), timeout, POLL_INTERVAL, isThere);
    }
    const bool hasCome = (rest > 0 && [awaited.element waitForExistenceWithTimeout:rest]) || isThere();
    return hasCome ? XCTWaiterResult::completed : XCTWaiterResult::timedOut;
  });
}

XCTWaiterResult XCTestDriver::waitForPredicate(const XCUIElement& element, const NSPredicate& predicate,
                                               Seconds timeout) {
  const Operation waiting = operation("waitForPredicate", element);
  return waiting.guarded([&] {
    ::NSPredicate* const wanted = Lookup(waiting, applications_).predicateOverAttributes(predicate);
    const auto holds = [&] { return [wanted evaluateWithObject:attributesOf(located(waiting, element)).get()] != NO; };
    if (holds()) {
      return XCTWaiterResult::completed;
    }
    const NSTimeInterval rest = saturated(timeout);
    const LocatedElement awaited = located(waiting, element);
    if (!isForTheFramework(awaited, element)) {
      return waitUntil(Clock::shared(), timeout, POLL_INTERVAL, holds);
    }
    const XCTWaiterResult result =
        rest > 0 ? waitInTheFramework(wanted, attributesOf(awaited).get(), rest) : XCTWaiterResult::timedOut;
    return result == XCTWaiterResult::timedOut && rest > 0 && holds() ? XCTWaiterResult::completed : result;
  });
}

// Acting on an element.

template <class Action>
void XCTestDriver::act(const Operation& operation, const XCUIElement& element, Action action) {
  operation.guarded([&] { action(required(operation, element).element); });
}

void XCTestDriver::tap(const XCUIElement& element) {
  act(operation("tap", element), element, [](::XCUIElement* found) { [found tap]; });
}

void XCTestDriver::press(const XCUIElement& element, Seconds duration) {
  act(operation("press", element), element,
      [duration](::XCUIElement* found) { [found pressForDuration:saturated(duration)]; });
}

void XCTestDriver::typeText(const XCUIElement& element, std::string_view text) {
  const Operation typing = operation("typeText", element);
  act(typing, element,
      [&](::XCUIElement* found) { keepingFailures(typing, [&] { [found typeText:platformText(text)]; }); });
}

void XCTestDriver::swipe(const XCUIElement& element, SwipeDirection direction) {
  act(operation("swipe", element), element, [direction](::XCUIElement* found) { xctest::swipe(found, direction); });
}

// Acting on a point.

bool XCTestDriver::isOnScreen(Point point, const XCUIElement& reference) {
  if (!std::isfinite(point.x) || !std::isfinite(point.y)) {
    return false;
  }
  // The application turns with the screen; where it fills only a part of that, the home screen tells the whole.
  const auto* const root = std::get_if<ApplicationRoot>(&reference.query().root());
  return (root != nullptr && contains(rectOf([applications_.named(root->bundleIdentifier) frame]), point)) ||
         contains(rectOf([home() frame]), point);
}

/// The platform's point; nil where it lies outside the screen.
::XCUICoordinate* XCTestDriver::platformPoint(const Operation& operation, const XCUICoordinate& point) {
  ::XCUIElement* const reference = required(operation, point.referencedElement()).element;
  const NormalizedOffset offset = point.normalizedOffset();
  if (!isOnScreen(pointAt(rectOf([reference frame]), offset), point.referencedElement())) {
    return nil;
  }
  return [reference coordinateWithNormalizedOffset:CGVectorMake(offset.dx, offset.dy)];
}

/// Where a drag to the point ends: at the edge of the screen where the point lies beyond it. Nil where it is not finite.
::XCUICoordinate* XCTestDriver::platformDestination(const Operation& operation, const XCUICoordinate& point) {
  ::XCUIElement* const reference = required(operation, point.referencedElement()).element;
  const Point place = pointAt(rectOf([reference frame]), point.normalizedOffset());
  if (!std::isfinite(place.x) || !std::isfinite(place.y)) {
    return nil;
  }
  const auto* const root = std::get_if<ApplicationRoot>(&point.referencedElement().query().root());
  ::XCUIElement* const whole = root == nullptr ? home() : applications_.named(root->bundleIdentifier);
  const Rect screen = rectOf([whole frame]);
  if (!(screen.size.width > 0 && screen.size.height > 0)) {
    return nil;
  }
  return [whole coordinateWithNormalizedOffset:CGVectorMake(
                                                   std::clamp((place.x - screen.origin.x) / screen.size.width, 0.0, 1.0),
                                                   std::clamp((place.y - screen.origin.y) / screen.size.height, 0.0,
                                                              1.0))];
}

/// A touch that lands on nothing takes its time all the same.
template <class Action>
void XCTestDriver::actAtPoint(const Operation& operation, const XCUICoordinate& point, Seconds duration,
                              Action action) {
  operation.guarded([&] {
    ::XCUICoordinate* const found = platformPoint(operation, point);
    if (found == nil) {
      sleepFor(Clock::shared(), duration);
    } else {
      action(found);
    }
  });
}

void XCTestDriver::tap(const XCUICoordinate& point) {
  actAtPoint(operation("tap", point), point, Seconds::zero(), [](::XCUICoordinate* found) { [found tap]; });
}

void XCTestDriver::press(const XCUICoordinate& point, Seconds duration) {
  actAtPoint(operation("press", point), point, duration,
             [duration](::XCUICoordinate* found) { [found pressForDuration:saturated(duration)]; });
}

void XCTestDriver::pressThenDrag(const XCUICoordinate& from, Seconds duration, const XCUICoordinate& to) {
  const Operation dragging = operation("pressThenDrag", from);
  actAtPoint(dragging, from, duration, [&](::XCUICoordinate* found) {
    // A drag to nowhere is a press that is lifted where it is.
    ::XCUICoordinate* const destination = platformDestination(operation("pressThenDrag", to), to);
    if (destination == nil) {
      [found pressForDuration:saturated(duration)];
    } else {
      [found pressForDuration:saturated(duration) thenDragToCoordinate:destination];
    }
  });
}

// The device.

void XCTestDriver::pressButton(XCUIDeviceButton button) {
  const std::string target = "the device";
  const Operation pressing = operation("pressButton", target);
#if defined(TARGET_OS_SIMULATOR) && TARGET_OS_SIMULATOR
  if (button != XCUIDeviceButton::home) {
    pressing.fail("a simulator has no volume buttons");
  }
#endif
  pressing.guarded([&] { [[::XCUIDevice sharedDevice] pressButton:static_cast<::XCUIDeviceButton>(button)]; });
}

std::optional<Data> XCTestDriver::screenshot() {
  const std::string target = "the screen";
  return operation("screenshot", target).guarded([&]() -> std::optional<Data> {
    NSData* const picture = [[[::XCUIScreen mainScreen] screenshot] PNGRepresentation];
    if ([picture length] == 0) {
      return std::nullopt;
    }
    Data png([picture length]);
    std::memcpy(png.data(), [picture bytes], png.size());
    return png;
  });
}

std::string XCTestDriver::debugDescription(const XCUIElement& element) {
  const Operation describing = operation("debugDescription", element);
  return describing.guarded([&] {
    const LocatedElement found = located(describing, element);
    return isPresent(found) ? textOf([found.element debugDescription]) : queryChain(element);
  });
}

// Interruptions.

InterruptionMonitorToken XCTestDriver::addInterruptionMonitor(std::string_view description,
                                                              InterruptionHandler handler) {
  const InterruptionMonitorToken token = handlers_->add(std::move(handler));
  const std::weak_ptr<HandlerCalls> calls = handlers_;
  const auto ask = ^BOOL(::XCUIElement* interrupting) {
    const std::shared_ptr<HandlerCalls> living = calls.lock();
    if (living == nullptr) {
      return NO;
    }
    const XCUIElement alert{QueryRoot(std::make_shared<const PlatformElementHandle>(interrupting))};
    const HandlerCalls::Answer answer = living->ask(token, alert);
    if (answer == HandlerCalls::Answer::raised) {
      [NSException raise:HANDLER_RAISED format:@"An interruption handler raised an error"];
    }
    return answer == HandlerCalls::Answer::dealtWith ? YES : NO;
  };
  const std::string target(description);
  operation("addInterruptionMonitor", target).guarded([&] {
    monitors_.emplace(
        token, Ref<id<NSObject>>([testCase_.get() addUIInterruptionMonitorWithDescription:platformText(description)
                                                                                  handler:ask]));
  });
  return token;
}

void XCTestDriver::removeInterruptionMonitor(InterruptionMonitorToken token) {
  const auto monitor = monitors_.find(token);
  if (monitor == monitors_.end()) {
    return;
  }
  const std::string target = "a handler";
  operation("removeInterruptionMonitor", target).guarded([&] {
    [testCase_.get() removeUIInterruptionMonitor:monitor->second.get()];
  });
  monitors_.erase(monitor);
  handlers_->remove(token);
}

}  // namespace quobrak::xctest
