#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quobrak::house {

/// What a file includes and must not, each as "FILE includes HEADER". `path` starts at the root.
///
/// Ours is included by its path from the root, and only downwards: the platform knows nothing of ours but itself, the
/// system and the drivers know the platform but not one another, the runner knows all of these. A library from outside
/// is known to the few files that wrap it. Tests and benchmarks may know all of ours.
std::vector<std::string> includeViolations(std::string_view path, std::string_view text);

}  // namespace quobrak::house
