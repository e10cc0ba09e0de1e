#pragma once

#include <cstdint>
#include <string_view>

#include "platform/uiautomation/XCTestCase.h"
#include "platform/uiautomation/XCUICoordinate.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak {

/// Commands that tap and press. Durations are milliseconds. What is wrong with an element is raised as
/// `FWKTError::fdslError`.
class Click : public XCTestCase {
 public:
  Click() = delete;

  /// Taps the first enabled element whose label, identifier or placeholder contains the text, in any case.
  static void clickByText(std::string_view selector);

  /// Taps the first enabled element whose label, identifier or placeholder the regular expression matches as a whole.
  static void clickByTextExact(std::string_view selector);

  /// Presses the element that `clickByText` would tap, without asking whether it can be hit.
  static void longClickByText(std::string_view selector, std::int64_t duration);

  /// Taps a button of the system's own process, such as one of an alert. The button must be there already.
  static void clickByTextOnSystemPopup(std::string_view selector);

  /// Taps a point (see `getCoordinate`).
  static void clickByXY(std::string_view x, std::string_view y);

  /// Presses a point (see `getCoordinate`).
  static void longClickByXY(std::string_view x, std::string_view y, std::int64_t duration);

  /// Taps a point in percent of the application's frame. Beyond 0 to 100 it lies outside.
  static void clickByPercent(std::int64_t xPercentage, std::int64_t yPercentage);

  /// What `clickOnLastElementFound` raises where no search has found anything yet.
  static constexpr const char* NOTHING_FOUND_YET = "Please search for an element before using this method";

  /// Taps `Find::lastElementFound`.
  static void clickOnLastElementFound();
};

/// The point of the application under test at these distances in points from its top-left corner, scaled by its first
/// window. A text that is no number counts as 0; without a window, or with one of no size, the point is nowhere. Throws
/// `FWKTError::fdslError` where no application was started.
XCUICoordinate getCoordinate(std::string_view xOffset, std::string_view yOffset);

/// Taps the element. Throws `FWKTError::fdslError` where it cannot receive a tap.
void tapIfHittable(const XCUIElement& element);

}  // namespace quobrak
