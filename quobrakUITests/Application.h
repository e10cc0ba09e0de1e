#pragma once

#include <string>

namespace quobrak {

/// Commands that start, end and install applications.
class Application {
 public:
  Application() = delete;

  /// Makes the application the one that commands act on, and launches it.
  static void applicationStart(const std::string& bundleId);

  /// Ends the application. It stays the one that commands act on where it was.
  static void applicationKill(const std::string& bundleId);

  /// Installs the application that an App Store link leads to: clears the browser's data, opens the link in the
  /// browser, taps what the App Store shows of it, and waits until the application can be opened. Then ends the App
  /// Store, which stays the application that commands act on. Throws `FWKTError::fdslError` where the link shows no
  /// product, where the application is already installed or cannot be got, and where it cannot be opened in time; the
  /// errors of the steps that it takes pass unchanged.
  static void installApp(const std::string& appStoreUrl);
};

}  // namespace quobrak
