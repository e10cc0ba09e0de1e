#include "platform/uiautomation/UIDriver.h"

#include <utility>

#include "platform/foundation/FatalError.h"

namespace quobrak {

namespace {

std::unique_ptr<UIDriver>& sharedDriver() {
  static std::unique_ptr<UIDriver> driver;
  return driver;
}

}  // namespace

UIDriver& UIDriver::shared() {
  if (sharedDriver() == nullptr) {
    fatalError("No UI driver is installed");
  }
  return *sharedDriver();
}

void UIDriver::install(std::unique_ptr<UIDriver> driver) {
  sharedDriver() = std::move(driver);
}

}  // namespace quobrak
