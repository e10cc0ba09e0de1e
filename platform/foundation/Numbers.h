#pragma once

#include <optional>
#include <string_view>

namespace quobrak {

/// The number that the whole text is, in any locale: an optional sign, then decimal digits that may hold a point and
/// end in an exponent ("-1.5e3"), or a hexadecimal number ("0x1.8p3"), or "inf", "infinity" or "nan" in any case, the
/// latter also with letters, digits and underscores in parentheses ("nan(0x7)"). A number beyond what a double can hold
/// is infinite, one too small for it is 0. None for any other text, so for an empty one and for one with a blank.
std::optional<double> parseDouble(std::string_view text);

}  // namespace quobrak
