#include "tests/documentation/MarkdownBlocks.h"

#include <functional>
#include <regex>
#include <sstream>
#include <utility>

namespace quobrak::documentation {

namespace {

constexpr std::string_view FENCE = "```";
constexpr std::string_view COMMENT = "<!--";
constexpr std::string_view END_OF_COMMENT = "-->";

/// Reads a page line by line.
class PageReader {
 public:
  explicit PageReader(const std::string& page) : stream_(page) {}

  /// Tells of every block, and of every line that is in none.
  void read(const std::function<void(const Block&)>& onBlock, const std::function<void(const std::string&)>& onLine) {
    std::vector<std::string> remarks;
    while (next()) {
      if (line_.starts_with(COMMENT)) {
        remarks = readComment();
      } else if (line_.starts_with(FENCE)) {
        onBlock(readBlock(std::exchange(remarks, {})));
      } else {
        readText();
        onLine(line_);
        remarks.clear();
      }
    }
  }

 private:
  bool next() {
    ++number_;
    return static_cast<bool>(std::getline(stream_, line_));
  }

  std::vector<std::string> readComment() {
    std::vector<std::string> remarks;
    while (line_.find(END_OF_COMMENT) == std::string::npos && next()) {
      if (!line_.starts_with(END_OF_COMMENT)) {
        remarks.push_back(line_);
      }
    }
    return remarks;
  }

  Block readBlock(std::vector<std::string> remarks) {
    Block block{.line = number_,
                .language = line_.substr(FENCE.size()),
                .text = "",
                .heading = heading_,
                .remarks = std::move(remarks)};
    for (bool isFirst = true; next() && line_ != FENCE; isFirst = false) {
      block.text += (isFirst ? "" : "\n") + line_;
    }
    return block;
  }

  void readText() {
    if (line_.starts_with('#')) {
      heading_ = line_.substr(line_.find_first_not_of("# "));
    }
  }

  std::istringstream stream_;
  std::string line_;
  std::size_t number_ = 0;
  std::string heading_;
};

void readPage(const std::string& page, const std::function<void(const Block&)>& onBlock,
              const std::function<void(const std::string&)>& onLine) {
  PageReader(page).read(onBlock, onLine);
}

}  // namespace

std::vector<Block> blocksIn(const std::string& page) {
  std::vector<Block> blocks;
  readPage(
      page, [&blocks](const Block& block) { blocks.push_back(block); }, [](const std::string&) {});
  return blocks;
}

std::vector<std::string> headingsIn(const std::string& page) {
  std::vector<std::string> headings;
  readPage(
      page, [](const Block&) {},
      [&headings](const std::string& line) {
        if (line.starts_with('#')) {
          headings.push_back(line.substr(line.find_first_not_of("# ")));
        }
      });
  return headings;
}

std::vector<std::string> linksIn(const std::string& page) {
  static const std::regex LINK(R"(\]\(([^)\s]+)\))");
  std::string text;
  readPage(
      page, [](const Block&) {}, [&text](const std::string& line) { text += line + "\n"; });
  std::vector<std::string> targets;
  for (std::sregex_iterator link(text.begin(), text.end(), LINK), end; link != end; ++link) {
    targets.push_back((*link)[1]);
  }
  return targets;
}

}  // namespace quobrak::documentation
