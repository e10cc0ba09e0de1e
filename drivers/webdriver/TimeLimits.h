#pragma once

#include <chrono>

namespace quobrak::webdriver {

/// How long the server may take, on the machine's own clock. A gesture adds the time that it takes itself.
struct TimeLimits {
  std::chrono::milliseconds connect = std::chrono::seconds(5);
  std::chrono::milliseconds command = std::chrono::seconds(30);
  std::chrono::milliseconds launch = std::chrono::seconds(120);
  std::chrono::milliseconds screenshot = std::chrono::seconds(30);
  /// A server builds and installs its helper on the phone for the first session.
  std::chrono::milliseconds newSession = std::chrono::seconds(180);
  std::chrono::milliseconds endOfSession = std::chrono::seconds(10);
};

}  // namespace quobrak::webdriver
