#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quobrak::host {

/// The first character of the text that takes no room or looks like a common blank and is none: a part of the text.
std::optional<std::string_view> firstInvisible(std::string_view text);

/// The first control character of the text but tabs: a part of the text.
std::optional<std::string_view> firstControl(std::string_view text);

/// The number of the character that the UTF-8 is: "U+200B".
std::string numberOf(std::string_view character);

}  // namespace quobrak::host
