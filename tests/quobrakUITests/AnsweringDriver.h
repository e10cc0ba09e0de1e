#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/uiautomation/WrappedDriver.h"

namespace quobrak::testing {

/// A driver of no phone, which keeps what is asked of it with all that it was given, and answers as the test says. It
/// does nothing: a tap changes nothing, a wait takes no time, there are no pictures.
class AnsweringDriver final : public WrappedDriver {
 public:
  AnsweringDriver() : WrappedDriver(nullptr) {}

  /// Takes the place of the driver that is installed.
  static AnsweringDriver& install();

  /// The operations so far: "press 1.5 s: the element …", "type "a": the application …", "forgetLookups".
  std::vector<std::string> operations;

  /// The part of `operations` that is no question: what a phone would have been told to do.
  std::vector<std::string> actions() const;

  /// Called with each operation; may throw in its place.
  std::function<void(const std::string& operation)> before = [](const std::string&) {};

  std::function<std::size_t(const std::string& query)> countOf = [](const std::string&) { return 1; };
  std::function<bool(const std::string& element)> existsOf = [](const std::string&) { return true; };
  std::function<bool()> isHittableAnswer = [] { return true; };
  std::string labelAnswer = "Go";
  Rect frameAnswer{{0, 0}, {100, 200}};
  ElementValue valueAnswer;
  std::function<XCTWaiterResult(const std::string& element)> waitOf = [](const std::string&) {
    return XCTWaiterResult::completed;
  };

  void launch(const std::string& bundleIdentifier) override;
  void terminate(const std::string& bundleIdentifier) override;

  std::size_t count(const XCUIElementQuery& query) override;
  bool exists(const XCUIElement& element) override;
  std::string label(const XCUIElement& element) override;
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
  void forgetLookups() override;

 protected:
  /// What has no answer here fails the test.
  void around(std::string_view name, const std::function<std::string()>& target,
              const std::function<void()>& primitive) override;

 private:
  void keep(const std::string& operation);
};

}  // namespace quobrak::testing
