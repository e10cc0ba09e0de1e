#pragma once

#import "drivers/xctest/QuobrakTestCase.h"

#include <map>
#include <memory>

#include "drivers/xctest/HandlerCalls.h"
#include "drivers/xctest/Lookup.h"
#include "drivers/xctest/Ref.h"
#include "platform/uiautomation/UIDriver.h"

namespace quobrak::xctest {

/// Drives the phone that the process runs on, through the platform's UI-testing framework. For the main thread, while a
/// test runs whose `continueAfterFailure` is NO: what the framework records as a failure then ends the test with an
/// exception of its own, which passes through here.
///
/// Nothing is kept from a look-up: the framework resolves elements anew each time. Before each action, and each
/// question that the framework would call a failure on a missing element, it is asked whether the element exists.
///
/// What only the framework can know, as that an application is not installed or that nothing has the keyboard's focus,
/// it tells by a failure, which the test keeps from being recorded.
///
/// Where the framework decides, this driver cannot: it calls interruption handlers when an element that is acted on is
/// blocked, and an alert that none of them deals with it may dismiss itself; how deeply a pattern of MATCHES backtracks
/// is not bounded.
class XCTestDriver final : public UIDriver {
 public:
  /// Interruption handlers are registered with the test that runs.
  explicit XCTestDriver(QuobrakTestCase* testCase) : testCase_(testCase) {}

  void launch(const std::string& bundleIdentifier) override;
  void terminate(const std::string& bundleIdentifier) override;

  std::size_t count(const XCUIElementQuery& query) override;
  bool exists(const XCUIElement& element) override;
  std::string label(const XCUIElement& element) override;
  std::string identifier(const XCUIElement& element) override;
  ElementValue value(const XCUIElement& element) override;
  Rect frame(const XCUIElement& element) override;
  bool isHittable(const XCUIElement& element) override;

  XCTWaiterResult waitForExistence(const XCUIElement& element, Seconds timeout) override;
  XCTWaiterResult waitForPredicate(const XCUIElement& element, const NSPredicate& predicate, Seconds timeout) override;

  void tap(const XCUIElement& element) override;
  void press(const XCUIElement& element, Seconds duration) override;
  void typeText(const XCUIElement& element, std::string_view text) override;
  void swipe(const XCUIElement& element, SwipeDirection direction) override;

  void tap(const XCUICoordinate& point) override;
  void press(const XCUICoordinate& point, Seconds duration) override;
  void pressThenDrag(const XCUICoordinate& from, Seconds duration, const XCUICoordinate& to) override;

  void pressButton(XCUIDeviceButton button) override;
  std::optional<Data> screenshot() override;
  std::string debugDescription(const XCUIElement& element) override;

  InterruptionMonitorToken addInterruptionMonitor(std::string_view description, InterruptionHandler handler) override;
  void removeInterruptionMonitor(InterruptionMonitorToken token) override;

  void forgetLookups() override {}

 private:
  template <class Target>
  Operation operation(std::string_view name, const Target& target) {
    return {name, target, *handlers_};
  }
  LocatedElement located(const Operation& operation, const XCUIElement& element);
  LocatedElement required(const Operation& operation, const XCUIElement& element);
  template <class Answer, class Ask>
  Answer asked(std::string_view name, const XCUIElement& element, Ask ask);
  template <class Action>
  void act(const Operation& operation, const XCUIElement& element, Action action);

  template <class Action>
  void keepingFailures(const Operation& operation, Action action);

  ::XCUIApplication* home();
  bool isOnScreen(Point point, const XCUIElement& reference);
  ::XCUICoordinate* platformPoint(const Operation& operation, const XCUICoordinate& point);
  ::XCUICoordinate* platformDestination(const Operation& operation, const XCUICoordinate& point);
  template <class Action>
  void actAtPoint(const Operation& operation, const XCUICoordinate& point, Seconds duration, Action action);

  Ref<QuobrakTestCase*> testCase_;
  Applications applications_;
  /// Shared with the framework's monitors, which may outlive the driver.
  std::shared_ptr<HandlerCalls> handlers_ = std::make_shared<HandlerCalls>();
  std::map<InterruptionMonitorToken, Ref<id<NSObject>>> monitors_;
};

}  // namespace quobrak::xctest
