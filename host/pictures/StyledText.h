#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// A piece of a line in one style, which begins at a column (from 0). It has no two blanks in a row, and none at its
/// ends: such gaps lie between pieces, so that columns stay columns in any font.
struct StyledRun {
  std::size_t column = 0;
  bool isBold = false;
  /// A colour, `Style::dim`, or `Style::plain`.
  Style colour = Style::plain;
  std::string text;

  bool operator==(const StyledRun&) const = default;
};

using StyledLine = std::vector<StyledRun>;

/// What a program printed, line by line, with the styles that its sequences chose (SGR: ESC [ … m). Throws
/// `std::invalid_argument` for any other control character but the newline: a picture cannot show what moves the
/// cursor.
std::vector<StyledLine> styledLines(std::string_view printed);

}  // namespace quobrak::host
