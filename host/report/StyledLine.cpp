#include "host/report/StyledLine.h"

#include <algorithm>

namespace quobrak::host {

StyledLine& StyledLine::add(Style style, std::string_view text) {
  parts_.emplace_back(style, shown(text));
  return *this;
}

bool StyledLine::isEmpty() const {
  return std::all_of(parts_.begin(), parts_.end(), [](const auto& part) { return part.second.empty(); });
}

std::string StyledLine::fitted(const Terminal& terminal, std::size_t columns) const {
  std::string whole;
  for (const auto& [style, part] : parts_) {
    whole += part;
  }
  const std::string kept = shortened(whole, columns);
  const bool isCut = kept != whole && !kept.empty();
  constexpr std::string_view ELLIPSIS = "…";
  // What is kept of the whole text, in bytes, is given back to the parts.
  std::size_t left = kept.size() - (isCut ? ELLIPSIS.size() : 0);
  std::string line;
  for (const auto& [style, part] : parts_) {
    const std::string_view keptOfPart = std::string_view(part).substr(0, left);
    line += terminal.styled(style, keptOfPart);
    left -= keptOfPart.size();
  }
  return line.append(isCut ? ELLIPSIS : "");
}

}  // namespace quobrak::host
