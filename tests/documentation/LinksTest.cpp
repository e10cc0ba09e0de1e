// Links between the pages of the documentation lead to a page, and to a heading on it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "manual/Markdown.h"
#include "tests/documentation/MarkdownBlocks.h"

namespace quobrak::documentation {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> pages() {
  const fs::path root = QUOBRAK_SOURCE_FOLDER;
  std::vector<fs::path> paths{root / "README.md", root / "CONTRIBUTING.md"};
  for (const fs::directory_entry& entry : fs::directory_iterator(root / "docs")) {
    if (entry.path().extension() == ".md") {
      paths.push_back(entry.path());
    }
  }
  return paths;
}

bool hasHeading(const fs::path& page, const std::string& anchor) {
  const std::vector<std::string> headings = headingsIn(contentOf(page));
  return std::any_of(headings.begin(), headings.end(),
                     [&anchor](const std::string& heading) { return manual::anchorOf(heading) == anchor; });
}

/// `target` is relative to the page: a path, an anchor, or both.
bool leadsSomewhere(const fs::path& page, const std::string& target) {
  const std::size_t hash = target.find('#');
  const std::string path = target.substr(0, hash);
  const fs::path file = path.empty() ? page : page.parent_path() / path;
  return fs::exists(file) && (hash == std::string::npos || hasHeading(file, target.substr(hash + 1)));
}

TEST(Links, LeadToAPageAndAHeadingOnIt) {
  std::size_t links = 0;
  for (const fs::path& page : pages()) {
    for (const std::string& target : linksIn(contentOf(page))) {
      if (target.find("://") == std::string::npos) {
        EXPECT_TRUE(leadsSomewhere(page, target)) << page.filename() << ": " << target;
        ++links;
      }
    }
  }
  EXPECT_GT(links, 100U) << "most of them in commands.md";
}

TEST(Links, ThatLeadNowhereAreNoticed) {
  const fs::path page = fs::path(QUOBRAK_SOURCE_FOLDER) / "docs" / "commands.md";
  EXPECT_TRUE(leadsSomewhere(page, "#pause"));
  EXPECT_TRUE(leadsSomewhere(page, "../README.md"));
  EXPECT_FALSE(leadsSomewhere(page, "#paus"));
  EXPECT_FALSE(leadsSomewhere(page, "commands.md#paus"));
  EXPECT_FALSE(leadsSomewhere(page, "no.md"));
}

}  // namespace
}  // namespace quobrak::documentation
