#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/webdriver/Applications.h"
#include "drivers/webdriver/Dialect.h"
#include "drivers/webdriver/Lookups.h"
#include "drivers/webdriver/Session.h"
#include "drivers/webdriver/TimeLimits.h"
#include "drivers/webdriver/Transport.h"
#include "platform/foundation/Clock.h"
#include "platform/uiautomation/InterruptionMonitors.h"
#include "platform/uiautomation/UIDriver.h"

namespace quobrak::webdriver {

/// The server that a driver speaks with.
struct Server {
  /// Its address with the path below which it answers, if any. May hold a user and a password, which no message shows.
  std::string url;
  Dialect dialect = Dialect::appium;
  /// What a session must have.
  JSONValue::Object capabilities{};
  TimeLimits limits{};
};

/// What a session on the server needs where a user asks for nothing else.
JSONValue::Object usualCapabilities(Dialect dialect);

/// Drives a phone over WebDriver. The session is opened by the first primitive that needs it, and ended with the
/// driver.
///
/// What differs from the contract, because servers do not tell: an application that runs behind another one has no
/// elements here; frames are whole points; whatever opens another application than `launch` and the Home button is
/// noticed only where elements are not found.
class WebDriverDriver final : public UIDriver {
 public:
  /// `clock` must outlive the driver.
  WebDriverDriver(const Server& server, Clock& clock);
  /// The same over a transport of one's own.
  WebDriverDriver(const Server& server, std::unique_ptr<Transport> transport, Clock& clock);

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

  void forgetLookups() override { lookups_.forget(); }

 private:
  class Operation;

  Operation operation(std::string_view name, std::function<std::string()> target) const;
  template <class Target>
  Operation operationOn(std::string_view name, const Target& target) const;

  /// `target` is what is about to be acted on.
  void dealWithAlerts(const XCUIElement& target);
  std::optional<XCUIElement> alertBlocking(const XCUIElement& target);
  bool isPartOf(const FoundElement& alert, const XCUIElement& target);
  bool mayAnAlertBeUp();

  /// What `ask` tells of the element, or the answer of absent ones.
  template <class Answer, class Ask>
  Answer asked(std::string_view name, const XCUIElement& element, const Ask& ask);
  FoundElement required(const Operation& operation, const XCUIElement& element);
  /// Deals with alerts, finds the element and acts on it; once more where it is gone when it comes to that.
  template <class Act>
  void actOn(const Operation& operation, const XCUIElement& element, const Act& act);
  void carryOut(Verb verb, JSONValue::Object arguments, Seconds duration, const std::string& element = "");

  bool askWhetherHittable(const XCUIElement& element, const FoundElement& found);
  void type(const Operation& operation, const XCUIElement& element, const FoundElement& found, std::string_view text);
  bool isOrContains(const XCUIElement& element, const FoundElement& found, const FoundElement& active);
  std::optional<FoundElement> focused();
  Rect screen();
  /// None where the point is not finite.
  std::optional<Point> placeOf(const Operation& operation, const XCUICoordinate& point);
  /// None where the point lies on nothing.
  std::optional<Point> onScreen(const Operation& operation, const XCUICoordinate& point);
  std::string describedBelow(const XCUIElement& element, const FoundElement& found);

  std::string where_;
  Clock& clock_;
  Session session_;
  Applications applications_;
  Lookups lookups_;
  InterruptionMonitors monitors_;

  /// The handle of the alert that is up, kept so that it stays the same for as long as the alert does.
  std::shared_ptr<const AlertHandle> alertHandle_;

  /// The extent of the screen, and the session in which it was asked for.
  Rect screen_;
  int screenGeneration_ = 0;
};

}  // namespace quobrak::webdriver
