#pragma once

#include <string>
#include <vector>

#include "tests/house/SourceTree.h"

namespace quobrak::house {

/// The headers that do not begin with #pragma once.
std::vector<std::string> headersWithoutPragmaOnce(const SourceTree& tree);

/// The sources of the programs, but for the exceptions that `FileRules.cpp` lists with their reasons, that have no test
/// file: tests/FOLDER/NameTest.cpp for FOLDER/Name.cpp.
std::vector<std::string> sourcesWithoutTest(const SourceTree& tree);

/// The exceptions that no longer name a source.
std::vector<std::string> idleExceptions(const SourceTree& tree);

}  // namespace quobrak::house
