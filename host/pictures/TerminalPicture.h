#pragma once

#include <string>
#include <vector>

namespace quobrak::host {

/// A line that was typed at the prompt, and what it made a program print, with sequences that choose styles.
struct Exchange {
  std::string typed;
  std::string printed;
};

/// A picture (SVG) of a terminal in which that was typed and printed, one line below the other. `title` says in words
/// what is seen. The text in it is text, in the reader's own monospaced font and at exact columns; its colours follow
/// the reader's choice of light or dark. Throws what `styledLines` throws.
std::string terminalPicture(const std::string& title, const std::vector<Exchange>& exchanges);

}  // namespace quobrak::host
