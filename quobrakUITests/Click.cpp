#include "quobrakUITests/Click.h"

#include <chrono>
#include <string>

#include "platform/foundation/Numbers.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

using std::chrono::milliseconds;

double offsetIn(std::string_view text) {
  return parseDouble(text).value_or(0);
}

}  // namespace

void Click::clickByText(std::string_view selector) {
  tapIfHittable(Find::findByText({.selector = selector, .nthElement = 1, .isEnabled = true, .isTextExact = false}));
}

void Click::clickByTextExact(std::string_view selector) {
  tapIfHittable(Find::findByText({.selector = selector, .nthElement = 1, .isEnabled = true, .isTextExact = true}));
}

void Click::longClickByText(std::string_view selector, std::int64_t duration) {
  Find::findByText({.selector = selector, .nthElement = 1, .isEnabled = true, .isTextExact = false})
      .press(milliseconds(duration));
}

void Click::clickByTextOnSystemPopup(std::string_view selector) {
  const XCUIElement button = XCUIApplication("com.apple.springboard").buttons()[selector];
  if (!button.exists()) {
    throw FWKTError::fdslError("The expected element " + std::string(selector) + " was not found");
  }
  button.tap();
}

void Click::clickByXY(std::string_view x, std::string_view y) {
  getCoordinate(x, y).tap();
}

void Click::longClickByXY(std::string_view x, std::string_view y, std::int64_t duration) {
  getCoordinate(x, y).press(milliseconds(duration));
}

void Click::clickByPercent(std::int64_t xPercentage, std::int64_t yPercentage) {
  const NormalizedOffset offset{static_cast<double>(xPercentage) / 100.0, static_cast<double>(yPercentage) / 100.0};
  TestContext::shared().getTestingApp().coordinate(offset).tap();
}

void Click::clickOnLastElementFound() {
  if (!Find::lastElementFound) {
    throw FWKTError::fdslError(NOTHING_FOUND_YET);
  }
  tapIfHittable(*Find::lastElementFound);
}

XCUICoordinate getCoordinate(std::string_view xOffset, std::string_view yOffset) {
  const double x = offsetIn(xOffset);
  const double y = offsetIn(yOffset);
  const XCUIApplication app = TestContext::shared().getTestingApp();
  const Size window = app.windows().elementBoundBy(0).frame().size;
  return app.coordinate({x / window.width, y / window.height});
}

void tapIfHittable(const XCUIElement& element) {
  if (element.isHittable()) {
    element.tap();
    return;
  }
  const std::string label = element.label();
  throw FWKTError::fdslError(label.empty() ? "The element is not hittable"
                                           : "The element " + label + " is not hittable");
}

}  // namespace quobrak
