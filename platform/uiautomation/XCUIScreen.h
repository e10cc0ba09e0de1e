#pragma once

#include <optional>

#include "platform/foundation/Data.h"

namespace quobrak {

/// The screen of the device.
class XCUIScreen {
 public:
  static XCUIScreen& mainScreen();

  /// A picture of the whole screen as PNG; none where the picture cannot be encoded.
  std::optional<Data> pngScreenshot();
};

}  // namespace quobrak
