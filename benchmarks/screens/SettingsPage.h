#pragma once

#include <cstddef>
#include <string>

#include "platform/uiautomation/Geometry.h"

namespace quobrak::benchmarks {

inline constexpr Size SETTINGS_SCREEN{402, 874};

/// The page source of a settings screen with one long table, as a server writes it and with as many elements, the
/// application among them. What it is made of, and how often, was counted on such screens: a half is Other and shows
/// nothing, a third StaticText, a sixth Cell; a third of all has a label, and few have an identifier. What lies below
/// the screen is called invisible.
std::string settingsPage(std::size_t elements);

}  // namespace quobrak::benchmarks
