#pragma once

#include "drivers/simulator/Element.h"
#include "drivers/simulator/Phone.h"

namespace quobrak::fuzz {

/// Points farther away than any screen has content.
inline constexpr double END_OF_THE_WORLD = 1e6;

/// Whether all frames lie before that. Beyond it, numbers become too coarse for places to be added up from others.
bool isOfThisWorld(const simulator::Element& root);

/// What holds for the tree of every screen: it is well linked, its texts are texts, its frames numbers, and who is hit
/// at an element's hit point agrees with whether it is hittable.
void requireScreenPromises(const simulator::Element& root);

/// What holds for every phone at all times.
void requirePhonePromises(const simulator::Phone& phone);

}  // namespace quobrak::fuzz
