#pragma once

#include <string_view>

namespace quobrak::fuzz {

/// Stops the process where something does not hold that must hold for every input. `promise` says what that is.
void require(bool holds, std::string_view promise);

}  // namespace quobrak::fuzz
