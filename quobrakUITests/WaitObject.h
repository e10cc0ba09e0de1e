#pragma once

#include <cstdint>
#include <string_view>

#include "platform/uiautomation/XCTestCase.h"

namespace quobrak {

/// Commands that wait for elements to appear or to vanish. A selector is a part of the element's text in any case, or,
/// where the name says Exact, a regular expression for all of it. The text is the label or, as "accessibility field",
/// the identifier. Time-outs are milliseconds.
///
/// A wait answers whether it came about in time. It throws `FWKTError::fdslError` only where no application was
/// started.
class WaitObject : public XCTestCase {
 public:
  WaitObject() = delete;

  static bool waitUntilText(std::string_view selector, std::int64_t timeout);
  static bool waitUntilTextExact(std::string_view selector, std::int64_t timeout);
  static bool waitUntilAccessibilityField(std::string_view selector, std::int64_t timeout);
  static bool waitUntilAccessibilityFieldExact(std::string_view selector, std::int64_t timeout);

  /// Waits for a button of the system's own process, with exactly that label or identifier. Needs no application.
  static bool waitUntilTextOnSystemPopup(std::string_view selector, std::int64_t timeout);

  static bool waitUntilGoneText(std::string_view selector, std::int64_t timeout);
  static bool waitUntilGoneTextExact(std::string_view selector, std::int64_t timeout);
  static bool waitUntilGoneAccessibilityField(std::string_view selector, std::int64_t timeout);
  static bool waitUntilGoneAccessibilityFieldExact(std::string_view selector, std::int64_t timeout);

  // Wait, then tap as `Click` taps by text. With `clickOnlyIfExists` the wait is shorter, and where nothing appeared
  // nothing is tapped; without it the tap is tried all the same, and says what is missing.

  static void waitUntilTextBeforeClick(std::string_view selector, bool clickOnlyIfExists);
  static void waitUntilTextExactBeforeClick(std::string_view selector, bool clickOnlyIfExists);
  static void waitUntilAccessibilityFieldBeforeClick(std::string_view selector, bool clickOnlyIfExists);
  static void waitUntilAccessibilityFieldExactBeforeClick(std::string_view selector, bool clickOnlyIfExists);
};

}  // namespace quobrak
