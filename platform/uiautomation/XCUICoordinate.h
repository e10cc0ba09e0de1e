#pragma once

#include "platform/foundation/Clock.h"
#include "platform/uiautomation/Geometry.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak {

/// A place on the screen, described by an element and an offset within it.
class XCUICoordinate {
 public:
  XCUICoordinate(XCUIElement element, NormalizedOffset offset) : element_(std::move(element)), offset_(offset) {}

  const XCUIElement& referencedElement() const { return element_; }
  NormalizedOffset normalizedOffset() const { return offset_; }

  void tap() const;
  void press(Seconds duration) const;
  void pressThenDrag(Seconds duration, const XCUICoordinate& destination) const;

 private:
  XCUIElement element_;
  NormalizedOffset offset_;
};

std::string describe(const XCUICoordinate& coordinate);

}  // namespace quobrak
