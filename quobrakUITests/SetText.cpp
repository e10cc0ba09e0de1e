#include "quobrakUITests/SetText.h"

#include "platform/foundation/Unicode.h"
#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/Device.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

XCUIApplication applicationWithKeyboard() {
  XCUIApplication app = TestContext::shared().getTestingApp();
  if (!app.keyboards().element().exists()) {
    throw FWKTError::fdslError("The keyboard is not visible");
  }
  return app;
}

void tapReturnKey() {
  const XCUIElementQuery keys = TestContext::shared().getTestingApp().buttons().matchingIdentifier("return");
  if (const std::size_t count = keys.count(); count > 0) {
    tapIfHittable(keys.elementBoundBy(count - 1));
  }
}

void setText(const XCUIElement& element, std::string_view text) {
  tapIfHittable(element);
  element.typeText(text);
  tapReturnKey();
}

}  // namespace

void SetText::enterText(std::string_view text, std::int64_t period) {
  const XCUIApplication app = applicationWithKeyboard();
  for (const std::string_view character : characters(text)) {
    app.typeText(character);
    if (period > 0) {
      Device::pause(period);
    }
  }
}

void SetText::enterTextFast(std::string_view text) {
  applicationWithKeyboard().typeText(text);
}

void SetText::setTextByText(std::string_view textToSet, std::string_view textSelector) {
  setText(Find::findByText({.selector = textSelector, .nthElement = 1, .isEnabled = true, .isTextExact = false}),
          textToSet);
}

void SetText::setTextByTextExact(std::string_view textToSet, std::string_view textSelector) {
  setText(Find::findByText({.selector = textSelector, .nthElement = 1, .isEnabled = true, .isTextExact = true}),
          textToSet);
}

}  // namespace quobrak
