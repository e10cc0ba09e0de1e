#pragma once

#include <string>

#include "drivers/simulator/Element.h"
#include "platform/uiautomation/Geometry.h"

/// Elements in words, as a terminal may show them.
namespace quobrak::host {

/// `Button "Basket"`; without a label `Button 'basket'` by its identifier, or its type alone.
std::string nameOf(const simulator::Element& element);

/// Its type and all of its texts: `TextField "Name" identifier 'name' value 'Ada' placeholder 'Your name'`. `remarks`
/// stand behind the type in brackets, where there are any.
std::string describe(const simulator::Element& element, const std::string& remarks);

/// What it is in, from the outside: `Application "Shop" > Window > Toolbar`. Empty for one that is in nothing.
std::string placeOf(const simulator::Element& element);

/// A number of points: whole, or with one decimal.
std::string inPoints(double points);

/// "16, 107, 358 x 44": from the left, from above, width and height.
std::string describe(const Rect& frame);

}  // namespace quobrak::host
