#pragma once

#include <map>
#include <string>

#include "fuzz/support/Input.h"

namespace quobrak::fuzz {

/// The files that an input holds: each begins behind a line of "@" and its name. What comes before the first one is in
/// none.
std::map<std::string, std::string> filesIn(Input input);

}  // namespace quobrak::fuzz
