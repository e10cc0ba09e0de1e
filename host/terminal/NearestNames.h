#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::host {

/// The names that somebody may have meant who wrote `written`: those that differ from it by few changes (a character
/// more, less, other, or two that changed places), letter case aside, the nearest first and at most three; also those
/// that begin with what was written, where that is three characters at least. Names that are farther than the nearest
/// by more than one change are left out, and all others where one differs in letter case alone. None where nothing is
/// near.
std::vector<std::string_view> nearestNames(std::string_view written, std::span<const std::string_view> names);

/// "did you mean a, b or c?"; empty where there is no name.
std::string didYouMean(const std::vector<std::string_view>& names);

}  // namespace quobrak::host
