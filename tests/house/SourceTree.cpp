#include "tests/house/SourceTree.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

namespace quobrak::house {

namespace {

namespace fs = std::filesystem;

constexpr std::array FOLDERS{"platform", "quobrakUITests", "drivers", "phoneserver", "runner",
                             "manual",   "host",           "tests",   "benchmarks",  "fuzz"};

bool isOfInterest(const fs::path& file) {
  return file.extension() == ".cpp" || file.extension() == ".mm" || file.extension() == ".h" ||
         file.filename() == "CMakeLists.txt";
}

std::string contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace

SourceTree readSourceTree(const fs::path& root) {
  SourceTree tree;
  for (const char* folder : FOLDERS) {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root / folder)) {
      if (entry.is_regular_file() && isOfInterest(entry.path())) {
        tree.emplace(entry.path().lexically_relative(root).generic_string(), contentOf(entry.path()));
      }
    }
  }
  return tree;
}

const SourceTree& ourSourceTree() {
  static const SourceTree tree = readSourceTree(QUOBRAK_SOURCE_FOLDER);
  return tree;
}

std::vector<std::string> filesEndingIn(const SourceTree& tree, std::string_view ending) {
  std::vector<std::string> paths;
  for (const auto& [path, text] : tree) {
    if (path.ends_with(ending)) {
      paths.push_back(path);
    }
  }
  return paths;
}

std::vector<std::string> sourcesOf(const SourceTree& tree) {
  std::vector<std::string> paths = filesEndingIn(tree, ".cpp");
  const std::vector<std::string> others = filesEndingIn(tree, ".mm");
  paths.insert(paths.end(), others.begin(), others.end());
  return paths;
}

std::string folderOf(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  return std::string(path.substr(0, slash == std::string_view::npos ? 0 : slash));
}

}  // namespace quobrak::house
