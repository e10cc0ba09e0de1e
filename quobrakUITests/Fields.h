#pragma once

#include <string_view>
#include <vector>

namespace quobrak {

/// Replaces what `fields` holds by the pieces between the commas of the line, as they stand; empty pieces are kept, so
/// that a field never changes its place. A line without a comma is one piece.
void splitAtCommas(std::string_view line, std::vector<std::string_view>& fields);

}  // namespace quobrak
