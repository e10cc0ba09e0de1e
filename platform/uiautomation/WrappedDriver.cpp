#include "platform/uiautomation/WrappedDriver.h"

#include <optional>
#include <type_traits>

namespace quobrak {

namespace {

std::string_view nameOf(XCUIDeviceButton button) {
  switch (button) {
    case XCUIDeviceButton::home:
      return "home";
    case XCUIDeviceButton::volumeUp:
      return "volumeUp";
    case XCUIDeviceButton::volumeDown:
      return "volumeDown";
  }
  return "unknown";
}

/// Describes a target, when it is asked to.
template <class Target>
std::function<std::string()> inWords(const Target& target) {
  return [&target] { return describe(target); };
}

std::function<std::string()> inWords(const std::string& target) {
  return [&target] { return target; };
}

}  // namespace

template <class Primitive>
auto WrappedDriver::passed(std::string_view name, const std::function<std::string()>& target, Primitive primitive) {
  if constexpr (std::is_void_v<decltype(primitive())>) {
    around(name, target, primitive);
  } else {
    std::optional<decltype(primitive())> answer;
    around(name, target, [&] { answer = primitive(); });
    return *std::move(answer);
  }
}

void WrappedDriver::launch(const std::string& bundleIdentifier) {
  passed("launch", inWords(bundleIdentifier), [&] { driver_->launch(bundleIdentifier); });
}

void WrappedDriver::terminate(const std::string& bundleIdentifier) {
  passed("terminate", inWords(bundleIdentifier), [&] { driver_->terminate(bundleIdentifier); });
}

std::size_t WrappedDriver::count(const XCUIElementQuery& query) {
  return passed("count", inWords(query), [&] { return driver_->count(query); });
}

bool WrappedDriver::exists(const XCUIElement& element) {
  return passed("exists", inWords(element), [&] { return driver_->exists(element); });
}

std::string WrappedDriver::label(const XCUIElement& element) {
  return passed("label", inWords(element), [&] { return driver_->label(element); });
}

std::string WrappedDriver::identifier(const XCUIElement& element) {
  return passed("identifier", inWords(element), [&] { return driver_->identifier(element); });
}

ElementValue WrappedDriver::value(const XCUIElement& element) {
  return passed("value", inWords(element), [&] { return driver_->value(element); });
}

Rect WrappedDriver::frame(const XCUIElement& element) {
  return passed("frame", inWords(element), [&] { return driver_->frame(element); });
}

bool WrappedDriver::isHittable(const XCUIElement& element) {
  return passed("isHittable", inWords(element), [&] { return driver_->isHittable(element); });
}

XCTWaiterResult WrappedDriver::waitForExistence(const XCUIElement& element, Seconds timeout) {
  return passed(
      "waitForExistence", [&] { return describe(element); },
      [&] { return driver_->waitForExistence(element, timeout); });
}

XCTWaiterResult WrappedDriver::waitForPredicate(const XCUIElement& element, const NSPredicate& predicate,
                                                Seconds timeout) {
  return passed(
      "waitForPredicate", [&] { return describe(element); },
      [&] { return driver_->waitForPredicate(element, predicate, timeout); });
}

void WrappedDriver::tap(const XCUIElement& element) {
  passed("tap", inWords(element), [&] { driver_->tap(element); });
}

void WrappedDriver::press(const XCUIElement& element, Seconds duration) {
  passed("press", inWords(element), [&] { driver_->press(element, duration); });
}

void WrappedDriver::typeText(const XCUIElement& element, std::string_view text) {
  passed("typeText", inWords(element), [&] { driver_->typeText(element, text); });
}

void WrappedDriver::swipe(const XCUIElement& element, SwipeDirection direction) {
  passed("swipe", inWords(element), [&] { driver_->swipe(element, direction); });
}

void WrappedDriver::tap(const XCUICoordinate& point) {
  passed("tap", inWords(point), [&] { driver_->tap(point); });
}

void WrappedDriver::press(const XCUICoordinate& point, Seconds duration) {
  passed("press", inWords(point), [&] { driver_->press(point, duration); });
}

void WrappedDriver::pressThenDrag(const XCUICoordinate& from, Seconds duration, const XCUICoordinate& to) {
  passed(
      "pressThenDrag", [&] { return describe(from) + " to " + describe(to); },
      [&] { driver_->pressThenDrag(from, duration, to); });
}

void WrappedDriver::pressButton(XCUIDeviceButton button) {
  passed(
      "pressButton", [&] { return std::string(nameOf(button)); }, [&] { driver_->pressButton(button); });
}

std::optional<Data> WrappedDriver::screenshot() {
  return passed(
      "screenshot", [&] { return std::string(); }, [&] { return driver_->screenshot(); });
}

std::string WrappedDriver::debugDescription(const XCUIElement& element) {
  return passed("debugDescription", inWords(element), [&] { return driver_->debugDescription(element); });
}

InterruptionMonitorToken WrappedDriver::addInterruptionMonitor(std::string_view description,
                                                               InterruptionHandler handler) {
  return passed(
      "addInterruptionMonitor", [&] { return std::string(description); },
      [&] { return driver_->addInterruptionMonitor(description, std::move(handler)); });
}

void WrappedDriver::removeInterruptionMonitor(InterruptionMonitorToken token) {
  passed(
      "removeInterruptionMonitor", [&] { return std::string(); }, [&] { driver_->removeInterruptionMonitor(token); });
}

}  // namespace quobrak
