#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/uiautomation/XCTestCase.h"

namespace quobrak {

/// Commands that act on the device itself.
class Device : public XCTestCase {
 public:
  Device() = delete;

  /// Blocks for that many milliseconds. Fatal above 4294967 (about 71.6 minutes), which is what one sleep can take, and
  /// below 0.
  static void pause(std::int64_t timeMillis);

  /// What `pause` stops the process with for that many milliseconds; none where it sleeps.
  static std::optional<std::string> pauseFault(std::int64_t timeMillis);

  static void pressHome();
  static void pressVolumeUp();
  static void pressVolumeDown();
};

}  // namespace quobrak
