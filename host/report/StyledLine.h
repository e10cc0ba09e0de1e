#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// One line of text in several styles. Control characters in it are shown, and move no cursor.
class StyledLine {
 public:
  StyledLine& add(Style style, std::string_view text);

  bool isEmpty() const;

  /// The line cut to that many columns, with … at its end where something was cut off.
  std::string fitted(const Terminal& terminal, std::size_t columns) const;

 private:
  std::vector<std::pair<Style, std::string>> parts_;
};

}  // namespace quobrak::host
