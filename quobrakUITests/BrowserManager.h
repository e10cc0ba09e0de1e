#pragma once

#include <string_view>

namespace quobrak {

/// Commands that bring the phone's browser into a known state. Their errors are those of the steps that they take, the
/// first of which to fail ends them.
class BrowserManager {
 public:
  BrowserManager() = delete;

  /// The bundle identifier of the browser.
  static constexpr const char* BROWSER = "com.apple.mobilesafari";

  /// Starts the browser and makes it the application that commands act on.
  static void launchBrowser();

  /// Types the address into the browser's address field. Whoever calls it submits the address.
  static void browserGoToUrl(std::string_view url);

  /// Clears the browser's history and data in the Settings application, and closes its tabs where Settings offers to:
  /// on the screens of newer and of older systems. Ends Settings, which stays the application that commands act on.
  /// Fatal where a row that leads there is not in the element tree of Settings (see `Scroll::swipeDownwardToText`).
  static void clearCache();

  /// Clears the browser's history and data, and starts the browser anew.
  static void prepareAndOpen();

  /// The same, and then shows a blank page or the black one (`ReferencePage`) for a minute.
  static void prepareAndOpenForReference(bool useBlankPage);
};

}  // namespace quobrak
