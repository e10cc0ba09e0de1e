#include "platform/uiautomation/XCUICoordinate.h"

#include <sstream>

#include "platform/uiautomation/UIDriver.h"

namespace quobrak {

void XCUICoordinate::tap() const {
  UIDriver::shared().tap(*this);
}

void XCUICoordinate::press(Seconds duration) const {
  UIDriver::shared().press(*this, duration);
}

void XCUICoordinate::pressThenDrag(Seconds duration, const XCUICoordinate& destination) const {
  UIDriver::shared().pressThenDrag(*this, duration, destination);
}

std::string describe(const XCUICoordinate& coordinate) {
  std::ostringstream text;
  text << "the point (" << coordinate.normalizedOffset().dx << ", " << coordinate.normalizedOffset().dy << ") of "
       << describe(coordinate.referencedElement());
  return text.str();
}

}  // namespace quobrak
