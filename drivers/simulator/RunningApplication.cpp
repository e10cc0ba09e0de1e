#include "drivers/simulator/RunningApplication.h"

#include <algorithm>

#include "drivers/simulator/HitTest.h"

namespace quobrak::simulator {

namespace {

bool isShownKeyboard(const Element& element) {
  return element.type == ElementType::keyboard && !element.isHidden && hitPoint(element);
}

}  // namespace

void RunningApplication::beginEditing(Element& field, Size screenSize) {
  endEditing();
  focused = &field;
  field.hasKeyboardFocus = true;
  if (!showsKeyboard(*screen)) {
    keyboard = &screen->append(keyboardWindow(field, screenSize));
    keyboardPlane = KeyboardPlane::letters;
  }
}

void RunningApplication::endEditing() {
  if (focused != nullptr) {
    focused->hasKeyboardFocus = false;
    focused = nullptr;
  }
  if (keyboard != nullptr) {
    screen->remove(*keyboard);
    keyboard = nullptr;
  }
}

void RunningApplication::remove(Element& element) {
  if (focused != nullptr && isWithin(*focused, element)) {
    endEditing();
  }
  element.parent()->remove(element);
}

bool showsKeyboard(const Element& screen) {
  bool isShown = false;
  forEachDescendant(screen, [&isShown](const Element& element) { isShown = isShown || isShownKeyboard(element); });
  return isShown;
}

double upperEdgeOfKeyboard(const Element& screen, double whereNone) {
  double edge = whereNone;
  forEachDescendant(screen, [&edge](const Element& element) {
    if (isShownKeyboard(element)) {
      edge = std::min(edge, element.frame.origin.y);
    }
  });
  return edge;
}

}  // namespace quobrak::simulator
