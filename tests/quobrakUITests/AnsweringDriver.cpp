#include "tests/quobrakUITests/AnsweringDriver.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace quobrak::testing {

namespace {

std::string inWords(Seconds duration) {
  std::ostringstream text;
  text << duration.count() << " s";
  return text.str();
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
  return "nowhere";
}

std::string_view nameOf(XCUIDeviceButton button) {
  switch (button) {
    case XCUIDeviceButton::home:
      return "home";
    case XCUIDeviceButton::volumeUp:
      return "volumeUp";
    case XCUIDeviceButton::volumeDown:
      return "volumeDown";
  }
  return "none";
}

bool isQuestion(const std::string& operation) {
  for (const std::string_view question :
       {"count:", "exists:", "label:", "value:", "frame:", "isHittable:", "forgetLookups"}) {
    if (operation.starts_with(question)) {
      return true;
    }
  }
  return false;
}

}  // namespace

AnsweringDriver& AnsweringDriver::install() {
  auto driver = std::make_unique<AnsweringDriver>();
  AnsweringDriver& installed = *driver;
  UIDriver::install(std::move(driver));
  return installed;
}

std::vector<std::string> AnsweringDriver::actions() const {
  std::vector<std::string> found = operations;
  std::erase_if(found, isQuestion);
  return found;
}

void AnsweringDriver::keep(const std::string& operation) {
  operations.push_back(operation);
  before(operation);
}

void AnsweringDriver::launch(const std::string& bundleIdentifier) {
  keep("launch: " + bundleIdentifier);
}

void AnsweringDriver::terminate(const std::string& bundleIdentifier) {
  keep("terminate: " + bundleIdentifier);
}

std::size_t AnsweringDriver::count(const XCUIElementQuery& query) {
  keep("count: " + describe(query));
  return countOf(describe(query));
}

bool AnsweringDriver::exists(const XCUIElement& element) {
  keep("exists: " + describe(element));
  return existsOf(describe(element));
}

std::string AnsweringDriver::label(const XCUIElement& element) {
  keep("label: " + describe(element));
  return labelAnswer;
}

ElementValue AnsweringDriver::value(const XCUIElement& element) {
  keep("value: " + describe(element));
  return valueAnswer;
}

Rect AnsweringDriver::frame(const XCUIElement& element) {
  keep("frame: " + describe(element));
  return frameAnswer;
}

bool AnsweringDriver::isHittable(const XCUIElement& element) {
  keep("isHittable: " + describe(element));
  return isHittableAnswer();
}

XCTWaiterResult AnsweringDriver::waitForExistence(const XCUIElement& element, Seconds timeout) {
  keep("wait " + inWords(timeout) + " for existence: " + describe(element));
  return waitOf(describe(element));
}

XCTWaiterResult AnsweringDriver::waitForPredicate(const XCUIElement& element, const NSPredicate& predicate,
                                                  Seconds timeout) {
  keep("wait " + inWords(timeout) + " for " + predicate.predicateFormat() + ": " + describe(element));
  return waitOf(describe(element));
}

void AnsweringDriver::tap(const XCUIElement& element) {
  keep("tap: " + describe(element));
}

void AnsweringDriver::press(const XCUIElement& element, Seconds duration) {
  keep("press " + inWords(duration) + ": " + describe(element));
}

void AnsweringDriver::typeText(const XCUIElement& element, std::string_view text) {
  keep("type \"" + std::string(text) + "\": " + describe(element));
}

void AnsweringDriver::swipe(const XCUIElement& element, SwipeDirection direction) {
  keep("swipe " + std::string(nameOf(direction)) + ": " + describe(element));
}

void AnsweringDriver::tap(const XCUICoordinate& point) {
  keep("tap: " + describe(point));
}

void AnsweringDriver::press(const XCUICoordinate& point, Seconds duration) {
  keep("press " + inWords(duration) + ": " + describe(point));
}

void AnsweringDriver::pressThenDrag(const XCUICoordinate& from, Seconds duration, const XCUICoordinate& to) {
  keep("drag after " + inWords(duration) + ": " + describe(from) + " to " + describe(to));
}

void AnsweringDriver::pressButton(XCUIDeviceButton button) {
  keep("pressButton: " + std::string(nameOf(button)));
}

std::optional<Data> AnsweringDriver::screenshot() {
  keep("screenshot");
  return std::nullopt;
}

void AnsweringDriver::forgetLookups() {
  keep("forgetLookups");
}

void AnsweringDriver::around(std::string_view name, const std::function<std::string()>& target,
                             const std::function<void()>&) {
  ADD_FAILURE() << name << " has no answer: " << target();
  throw std::logic_error("no answer");
}

}  // namespace quobrak::testing
