#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quobrak {

/// Calls `visit` with the place of every occurrence of `target` in the text, found from left to right; none overlaps
/// the one before it. `target` must not be empty.
template <class Visit>
void forEachOccurrence(std::string_view text, std::string_view target, Visit visit) {
  for (std::size_t at = text.find(target); at != std::string_view::npos; at = text.find(target, at + target.size())) {
    visit(at);
  }
}

/// The text with every occurrence of `target`, found from left to right, replaced. What a replacement brings in is not
/// searched again. `target` must not be empty.
std::string replacingOccurrences(std::string_view text, std::string_view target, std::string_view replacement);

}  // namespace quobrak
