#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quobrak::phoneserver {

/// The parts between commas, without blanks at their ends and without empty ones.
std::vector<std::string> commaSeparated(std::string_view text);

}  // namespace quobrak::phoneserver
