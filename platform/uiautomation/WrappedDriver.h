#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/uiautomation/UIDriver.h"

namespace quobrak {

/// A driver around another one: every primitive passes through one place, where it can be watched, delayed or failed.
class WrappedDriver : public UIDriver {
 public:
  explicit WrappedDriver(std::unique_ptr<UIDriver> driver) : driver_(std::move(driver)) {}

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
  void forgetLookups() override { driver_->forgetLookups(); }

 protected:
  /// Called in place of each primitive but `forgetLookups`, which is none that a phone sees. `name` is the primitive's,
  /// `target` tells what it is done to, in words (empty where to nothing in particular), and `primitive` does it. What
  /// this raises, the primitive raises.
  virtual void around(std::string_view name, const std::function<std::string()>& target,
                      const std::function<void()>& primitive) = 0;

 private:
  template <class Primitive>
  auto passed(std::string_view name, const std::function<std::string()>& target, Primitive primitive);

  std::unique_ptr<UIDriver> driver_;
};

}  // namespace quobrak
