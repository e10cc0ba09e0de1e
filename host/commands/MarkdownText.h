#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// Markdown as it is read in a terminal: paragraphs and lists broken between words so that no line is longer than the
/// terminal is wide, where that can be, each line behind `indent` blanks and ended. What is in backticks is bold; where
/// there is no colour it keeps them. Of a link the text is left. The rest of an item of a list ("- ", "1. ") is
/// indented as far as its beginning. Empty for an empty text.
std::string markdownText(std::string_view markdown, std::size_t indent, const Terminal& terminal);

/// Text in which no character means anything, broken and indented so.
std::string wrappedText(std::string_view text, std::size_t indent, const Terminal& terminal);

}  // namespace quobrak::host
