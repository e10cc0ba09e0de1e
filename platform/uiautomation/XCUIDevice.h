#pragma once

namespace quobrak {

/// The buttons of the device, with the platform's raw values.
enum class XCUIDeviceButton { home = 1, volumeUp = 2, volumeDown = 3 };

/// The device that the test runs on.
class XCUIDevice {
 public:
  static XCUIDevice& sharedDevice();

  /// Presses a button once, shortly.
  void pressButton(XCUIDeviceButton button);
};

}  // namespace quobrak
