#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/Phone.h"
#include "drivers/simulator/Queries.h"
#include "drivers/simulator/ScreenPainter.h"
#include "platform/uiautomation/InterruptionMonitors.h"
#include "platform/uiautomation/UIDriver.h"

namespace quobrak::simulator {

/// Drives the simulated phone. Queries are evaluated in memory, anew in each primitive, so nothing that one found needs
/// to be kept; the tree is indexed for them once after it has changed.
///
/// The home application always runs: it cannot be ended, and a launch brings it to the front as it is.
///
/// Acting on an element of which no part is on the screen raises `UIAutomationError`.
class SimulatedDriver final : public UIDriver {
 public:
  /// `clock` must outlive the driver.
  SimulatedDriver(PhoneDescription phone, Clock& clock);

  /// The elements that the query finds now, for who is on the same machine as the phone. They stay as long as nothing
  /// is done and no time passes.
  std::vector<const Element*> elements(const XCUIElementQuery& query);
  /// Whether a touch on the element of the phone would land on it, as the phone is now.
  bool isHittableNow(const Element& element) const;

  const Phone& phone() const { return phone_; }
  Phone& phone() { return phone_; }

  void launch(const std::string& bundleIdentifier) override;
  void terminate(const std::string& bundleIdentifier) override;

  std::size_t count(const XCUIElementQuery& query) override { return elements(query).size(); }
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
  class Operation;

  const Element* rootOf(const QueryRoot& root) const;
  const Element* found(const Operation& operation, const XCUIElement& element) const;
  const Element& required(const Operation& operation, const XCUIElement& element) const;
  void touch(const Operation& operation, const XCUIElement& element, Seconds duration);
  void touch(const Operation& operation, const XCUICoordinate& point, Seconds duration);
  Point screenPoint(const Operation& operation, const XCUICoordinate& point) const;
  /// `target` is what is about to be acted on.
  void dealWithAlerts(const Operation& operation, const XCUIElement& target);
  bool isInAlert(const Operation& operation, const XCUIElement& target) const;
  std::optional<XCUIElement> blockingAlert();

  Clock& clock_;
  Phone phone_;
  QueryEvaluator queries_;
  ScreenPainter painter_;
  InterruptionMonitors monitors_;

  /// The handle of the alert that is up, kept so that it stays the same for as long as the alert does.
  std::shared_ptr<const ElementHandle> alertHandle_;
  std::uint64_t alertHandleNumber_ = 0;

  /// The last picture, and what it shows.
  std::optional<Data> picture_;
  std::uint64_t pictureRevision_ = 0;
};

}  // namespace quobrak::simulator
