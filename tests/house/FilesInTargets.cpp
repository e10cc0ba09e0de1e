#include "tests/house/FilesInTargets.h"

#include <regex>

namespace quobrak::house {

namespace {

bool isWordOf(const std::string& text, const std::string& word) {
  // No file of ours has a name with a character that means something in a pattern, but for the dot.
  const std::string pattern = std::regex_replace(word, std::regex(R"(\.)"), R"(\.)");
  return std::regex_search(text, std::regex(R"((^|[\s(]))" + pattern + R"(([\s)]|$))"));
}

std::string withoutComments(const std::string& text) {
  return std::regex_replace(text, std::regex("#[^\n]*"), "");
}

bool isInATarget(const SourceTree& tree, const std::string& path) {
  for (std::string folder = folderOf(path); !folder.empty(); folder = folderOf(folder)) {
    if (const auto list = tree.find(folder + "/CMakeLists.txt"); list != tree.end()) {
      return isWordOf(withoutComments(list->second), path.substr(folder.size() + 1));
    }
  }
  return false;
}

}  // namespace

std::vector<std::string> filesInNoTarget(const SourceTree& tree) {
  std::vector<std::string> missing;
  for (const std::string& path : sourcesOf(tree)) {
    // The compiler is meant to refuse these; a test of its own hands them to it.
    const bool mustNotCompile = path.starts_with("tests/quobrakUITests/wrong_table/");
    if (!mustNotCompile && !isInATarget(tree, path)) {
      missing.push_back(path);
    }
  }
  return missing;
}

}  // namespace quobrak::house
