#pragma once

#include <optional>
#include <string_view>

namespace quobrak::simulator {

/// A file of the built-in phone, which is compiled in: its path from the phone's folder ("com.example.shop/app.json").
/// None where there is no such file.
std::optional<std::string_view> builtinPhoneFile(std::string_view path);

/// The TrueType font that screens are drawn with.
std::string_view builtinFont();

}  // namespace quobrak::simulator
