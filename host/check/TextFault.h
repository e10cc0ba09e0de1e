#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/check/NumberedLines.h"

namespace quobrak::host {

/// Why bytes are no text.
struct TextFault {
  /// Where they cease to be one; the column in code points, from 1.
  LineNumber line;
  std::size_t column = 1;
  /// What is wrong, and what would be right.
  std::string words;
  /// The line, with U+FFFD for what is no text; empty where its encoding cannot be shown.
  std::string text;
};

/// What is wrong with bytes that `decodedText` does not take.
TextFault textFaultIn(std::string_view bytes);

}  // namespace quobrak::host
