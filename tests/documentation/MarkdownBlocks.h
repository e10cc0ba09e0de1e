#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace quobrak::documentation {

/// A fenced block of a page in Markdown.
struct Block {
  /// The line of its opening fence, from 1.
  std::size_t line = 0;
  /// Behind the opening fence.
  std::string language;
  /// Without a newline at its end.
  std::string text;
  /// The heading that it stands under.
  std::string heading;
  /// The lines of the comment (<!-- ... -->) before it, which readers of the page do not see.
  std::vector<std::string> remarks;
};

std::vector<Block> blocksIn(const std::string& page);

/// The words of the headings of a page, and not what looks like one within a block.
std::vector<std::string> headingsIn(const std::string& page);

/// The targets of the links on a page.
std::vector<std::string> linksIn(const std::string& page);

}  // namespace quobrak::documentation
