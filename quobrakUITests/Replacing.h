#pragma once

#include <string>
#include <string_view>

namespace quobrak {

/// The text with every occurrence of `target`, found from left to right, replaced. What a replacement brings in is not
/// searched again. `target` must not be empty.
std::string replacingOccurrences(std::string_view text, std::string_view target, std::string_view replacement);

}  // namespace quobrak
