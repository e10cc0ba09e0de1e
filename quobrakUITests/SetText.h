#pragma once

#include <cstdint>
#include <string_view>

#include "platform/uiautomation/XCTestCase.h"

namespace quobrak {

/// Commands that type. All throw `FWKTError::fdslError` where no application was started; what was typed before an
/// error stays.
class SetText : public XCTestCase {
 public:
  SetText() = delete;

  /// Types into the element that has the keyboard's focus, one user-perceived character at a time, with a pause of
  /// `period` milliseconds behind each, the last one too; none where it is 0 or less. Throws where no keyboard is
  /// shown. Fatal, behind the first character, where the pause is longer than `Device::pause` takes.
  static void enterText(std::string_view text, std::int64_t period);

  /// Types the whole text at once into the element that has the keyboard's focus. Throws where no keyboard is shown.
  static void enterTextFast(std::string_view text);

  /// Taps the first enabled element whose label, identifier or placeholder contains the selector, in any case, types
  /// behind what it holds, and taps the keyboard's return key where there is one. Throws where the element is missing,
  /// and where it or the key cannot receive a tap.
  static void setTextByText(std::string_view textToSet, std::string_view textSelector);

  /// The same, where the selector is a regular expression that matches the whole text.
  static void setTextByTextExact(std::string_view textToSet, std::string_view textSelector);
};

}  // namespace quobrak
