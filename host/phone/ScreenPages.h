#pragma once

#include <string>
#include <vector>

#include "drivers/simulator/Element.h"
#include "host/phone/Selector.h"
#include "host/phone/ShownScreen.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

using Elements = std::vector<const simulator::Element*>;

/// Which screen of which application is shown, and what else is to be known of the phone then.
std::string screenTitle(const ShownScreen& screen, const Terminal& terminal);

/// The elements of the application as a tree, a line each, cut to the terminal's width. The matches have their ranks
/// before them.
std::string screenTree(const ShownScreen& screen, const Elements& matches, const Terminal& terminal);

/// What the selector looks for, and each of the matches: its rank, what it is, where, and where a tap on it lands.
std::string matchList(const Selector& selector, const Elements& matches, const ShownScreen& screen,
                      const Terminal& terminal);

}  // namespace quobrak::host
