#pragma once

#include <string>

#include "drivers/simulator/Element.h"
#include "host/phone/ShownScreen.h"

namespace quobrak::host {

/// Whether a touch on an element lands on it, or why not.
enum class Obstacle { none, hidden, withoutExtent, outside, covered, behind };

/// For an element of the application that is shown.
Obstacle obstacleTo(const simulator::Element& element, const ShownScreen& screen);

/// In a word or two, for a remark behind the element; empty where there is none.
std::string remarkOn(Obstacle obstacle);

/// Where a tap on the element lands, as a sentence without a stop.
std::string fateOfTap(const simulator::Element& element, const ShownScreen& screen);

}  // namespace quobrak::host
