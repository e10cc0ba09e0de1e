#pragma once

#include <string>

#include "host/phone/Selector.h"
#include "host/phone/ShownScreen.h"

namespace quobrak::host {

/// For a selector that finds nothing: texts on the screen that are like its own, and other selectors with its text that
/// do find something. One hint in a line; empty where there is none.
std::string hintsFor(const Selector& selector, ShownScreen& screen);

}  // namespace quobrak::host
