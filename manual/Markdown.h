#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Pieces of a page in Markdown. Each ends with a newline.
namespace quobrak::manual {

/// The text, its lines broken between words so that none is longer than 120 bytes where that can be. What is in
/// backticks counts as one word. The rest of a line that begins as an item of a list ("- ", "1. ") is indented as far.
std::string wrapped(std::string_view text);

/// A table with a header and rows of as many cells; nothing where there are no rows.
std::string table(const std::vector<std::string>& header, const std::vector<std::vector<std::string>>& rows);

/// A fenced block.
std::string block(std::string_view lines);

/// `text` in backticks.
std::string inCode(std::string_view text);

/// What a link to a heading ends with, as sites that show Markdown make it of the heading's words.
std::string anchorOf(std::string_view heading);

}  // namespace quobrak::manual
