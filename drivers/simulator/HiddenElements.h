#pragma once

#include <vector>

#include "drivers/simulator/Element.h"

namespace quobrak::simulator {

/// Hides those of the elements that their captured screen called invisible for no reason that can be seen. What was
/// scrolled away, lay outside the screen or under something else is seen as soon as that changes; what a visible row
/// shows is called invisible because the row answers for it; and what has visible elements in it is not hidden. All the
/// rest is neither drawn nor touched. `invisible` are elements of the tree below `root`, in document order.
void hideInvisible(Element& root, const std::vector<Element*>& invisible);

}  // namespace quobrak::simulator
