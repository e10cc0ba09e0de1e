#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::host {

/// A piece of plain text between two empty lines. A piece whose first line begins with a blank stands as it is, line
/// for line; any other one may be broken anew.
struct Paragraph {
  std::vector<std::string> lines;
  bool isKept = false;
};

std::vector<Paragraph> paragraphsOf(std::string_view text);

/// The text in lines of no more columns than that, broken at blanks; a longer word has a line of its own. Runs of
/// blanks and ends of lines count as one blank. One empty line for an empty text.
std::vector<std::string> brokenInto(std::size_t columns, std::string_view text);

/// The words with the separator between them.
std::string joined(const std::vector<std::string>& words, std::string_view separator);

}  // namespace quobrak::host
