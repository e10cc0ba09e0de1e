#include "platform/uiautomation/XCUIScreen.h"

#include "platform/uiautomation/UIDriver.h"

namespace quobrak {

XCUIScreen& XCUIScreen::mainScreen() {
  static XCUIScreen screen;
  return screen;
}

std::optional<Data> XCUIScreen::pngScreenshot() {
  return UIDriver::shared().screenshot();
}

}  // namespace quobrak
