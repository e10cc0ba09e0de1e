#pragma once

#include <string_view>

#include "platform/uiautomation/XCTestCase.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak {

/// Commands that tap.
class Click : public XCTestCase {
 public:
  Click() = delete;

  /// Taps the first enabled element whose label, identifier or placeholder contains the text, in any case.
  static void clickByText(std::string_view selector);
};

/// Taps the element. Throws `FWKTError::fdslError` where it cannot receive a tap.
void tapIfHittable(const XCUIElement& element);

}  // namespace quobrak
