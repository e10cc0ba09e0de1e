#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/Element.h"

namespace quobrak::simulator {

/// What an alert or a sheet says and offers.
struct AlertText {
  std::string title;
  /// Empty where there is none.
  std::string message;
  std::vector<std::string> buttons;
};

/// The alert with which the phone asks for a permission ("location", "camera", "notifications" or "tracking") on behalf
/// of the application of that name. None for another permission.
std::optional<AlertText> permissionAlert(std::string_view permission, const std::string& applicationName);

/// The permissions that `permissionAlert` knows, for error texts.
std::string knownPermissions();

/// A Window that holds the alert, in the middle of a screen of that size. Two buttons stand side by side, more of them
/// one below the other.
std::unique_ptr<Element> alertWindow(const AlertText& alert, Size screen);

/// A Window that holds a Sheet of that text, along the lower edge of a screen of that size. Its title may be empty.
std::unique_ptr<Element> sheetWindow(const AlertText& sheet, Size screen);

}  // namespace quobrak::simulator
