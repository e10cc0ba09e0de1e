#pragma once

#include <string>
#include <vector>

#include "tests/house/SourceTree.h"

namespace quobrak::house {

/// The sources that no target builds, where a mistake or a whole test could hide: those that the CMakeLists.txt of
/// their folder, or of the nearest one above that has one, does not name.
std::vector<std::string> filesInNoTarget(const SourceTree& tree);

}  // namespace quobrak::house
