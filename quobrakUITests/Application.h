#pragma once

#include <string>

namespace quobrak {

/// Commands that start and end applications.
class Application {
 public:
  Application() = delete;

  /// Makes the application the one that commands act on, and launches it.
  static void applicationStart(const std::string& bundleId);

  /// Ends the application. It stays the one that commands act on where it was.
  static void applicationKill(const std::string& bundleId);
};

}  // namespace quobrak
