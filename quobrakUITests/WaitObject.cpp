#include "quobrakUITests/WaitObject.h"

#include <chrono>
#include <string>

#include "platform/uiautomation/XCTWaiter.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/Parameters.h"
#include "quobrakUITests/SelectorPredicates.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

using std::chrono::milliseconds;

constexpr const char* LABEL = "label";
constexpr const char* IDENTIFIER = "identifier";

/// What to wait for.
struct TextWait {
  std::string_view selector;
  /// Milliseconds.
  std::int64_t timeout;
  const char* attribute;
  bool isTextExact;
};

NSPredicate predicateOf(const TextWait& wait) {
  return attributePredicate(wait.attribute, {.text = wait.selector, .isExact = wait.isTextExact});
}

bool waitForExists(const TextWait& wait) {
  const XCUIApplication app = TestContext::shared().getTestingApp();
  const XCUIElement element = app.descendants(ElementType::any).elementMatching(predicateOf(wait));
  return element.waitForExistence(milliseconds(wait.timeout));
}

bool waitUntilGone(const TextWait& wait) {
  const NSPredicate predicate = predicateOf(wait);
  const XCUIApplication app = TestContext::shared().getTestingApp();
  const XCUIElement element = app.descendants(ElementType::any).matching(predicate).firstMatch();
  const XCTNSPredicateExpectation gone(NSCompoundPredicate::notPredicate(predicate), element);
  return XCTWaiter().wait(gone, milliseconds(wait.timeout)) == XCTWaiterResult::completed;
}

using Wait = bool (*)(std::string_view selector, std::int64_t timeout);
using Tap = void (*)(std::string_view selector);

/// A wait and the tap that follows it.
struct WaitThenTap {
  Wait wait;
  Tap tap;
};

void run(WaitThenTap steps, std::string_view selector, bool clickOnlyIfExists) {
  const std::int64_t timeout = clickOnlyIfExists ? WAIT_AND_CLICK_IF_EXISTS_TIMEOUT : WAIT_AND_CLICK_TIMEOUT;
  const bool isFound = steps.wait(selector, timeout);
  if (isFound || !clickOnlyIfExists) {
    steps.tap(selector);
  }
}

}  // namespace

bool WaitObject::waitUntilText(std::string_view selector, std::int64_t timeout) {
  return waitForExists({.selector = selector, .timeout = timeout, .attribute = LABEL, .isTextExact = false});
}

bool WaitObject::waitUntilTextExact(std::string_view selector, std::int64_t timeout) {
  return waitForExists({.selector = selector, .timeout = timeout, .attribute = LABEL, .isTextExact = true});
}

bool WaitObject::waitUntilAccessibilityField(std::string_view selector, std::int64_t timeout) {
  return waitForExists({.selector = selector, .timeout = timeout, .attribute = IDENTIFIER, .isTextExact = false});
}

bool WaitObject::waitUntilAccessibilityFieldExact(std::string_view selector, std::int64_t timeout) {
  return waitForExists({.selector = selector, .timeout = timeout, .attribute = IDENTIFIER, .isTextExact = true});
}

bool WaitObject::waitUntilTextOnSystemPopup(std::string_view selector, std::int64_t timeout) {
  return XCUIApplication("com.apple.springboard").buttons()[selector].waitForExistence(milliseconds(timeout));
}

bool WaitObject::waitUntilGoneText(std::string_view selector, std::int64_t timeout) {
  return waitUntilGone({.selector = selector, .timeout = timeout, .attribute = LABEL, .isTextExact = false});
}

bool WaitObject::waitUntilGoneTextExact(std::string_view selector, std::int64_t timeout) {
  return waitUntilGone({.selector = selector, .timeout = timeout, .attribute = LABEL, .isTextExact = true});
}

bool WaitObject::waitUntilGoneAccessibilityField(std::string_view selector, std::int64_t timeout) {
  return waitUntilGone({.selector = selector, .timeout = timeout, .attribute = IDENTIFIER, .isTextExact = false});
}

bool WaitObject::waitUntilGoneAccessibilityFieldExact(std::string_view selector, std::int64_t timeout) {
  return waitUntilGone({.selector = selector, .timeout = timeout, .attribute = IDENTIFIER, .isTextExact = true});
}

// The taps search all texts of an element, whichever of them was waited for.

void WaitObject::waitUntilTextBeforeClick(std::string_view selector, bool clickOnlyIfExists) {
  run({.wait = waitUntilText, .tap = Click::clickByText}, selector, clickOnlyIfExists);
}

void WaitObject::waitUntilTextExactBeforeClick(std::string_view selector, bool clickOnlyIfExists) {
  run({.wait = waitUntilTextExact, .tap = Click::clickByTextExact}, selector, clickOnlyIfExists);
}

void WaitObject::waitUntilAccessibilityFieldBeforeClick(std::string_view selector, bool clickOnlyIfExists) {
  run({.wait = waitUntilAccessibilityField, .tap = Click::clickByText}, selector, clickOnlyIfExists);
}

void WaitObject::waitUntilAccessibilityFieldExactBeforeClick(std::string_view selector, bool clickOnlyIfExists) {
  run({.wait = waitUntilAccessibilityFieldExact, .tap = Click::clickByTextExact}, selector, clickOnlyIfExists);
}

}  // namespace quobrak
