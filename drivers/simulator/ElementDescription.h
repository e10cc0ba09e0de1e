#pragma once

#include <span>
#include <string>
#include <vector>

#include "drivers/simulator/Element.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::simulator {

/// The element and all below it in the platform's own words, so that tools which read the one read the other: the
/// attributes of the element, its subtree, the path to it and the chain of the query that found it. Texts between
/// quotes are not escaped, as on the phone. `stages` is what the query's root, its steps and its pick found; the last
/// one begins with the element. `processIdentifier` is that of the element's application.
std::string debugDescription(const XCUIElement& description, std::span<const std::vector<const Element*>> stages,
                             int processIdentifier);

}  // namespace quobrak::simulator
