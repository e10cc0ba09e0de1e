#include "quobrakUITests/Click.h"

#include <string>

#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"

namespace quobrak {

void Click::clickByText(std::string_view selector) {
  tapIfHittable(Find::findByText({.selector = selector, .nthElement = 1, .isEnabled = true, .isTextExact = false}));
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
