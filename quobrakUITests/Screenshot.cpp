#include "quobrakUITests/Screenshot.h"

#include <cstdint>
#include <optional>

#include "platform/uiautomation/XCUIScreen.h"
#include "quobrakUITests/File.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

/// With zeros in front up to three digits.
std::string threeDigits(std::int64_t number) {
  const std::string digits = std::to_string(number);
  return std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}

}  // namespace

void takeScreenshot(const std::string& iterationPath, const std::string& name) {
  const std::optional<Data> png = XCUIScreen::mainScreen().pngScreenshot();
  if (!png) {
    return;
  }
  const std::string number = threeDigits(TestContext::shared().getScreenshotNumber());
  File::writeFileToDocumentDirectory(iterationPath + "/screenshots/" + number + "_" + name + ".png", *png);
  TestContext::shared().incrementScreenshotNumber();
}

}  // namespace quobrak
