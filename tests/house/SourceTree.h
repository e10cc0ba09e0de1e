#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::house {

/// The files of our folders that say how the house is built (C++ and Objective-C++ sources, headers and lists of
/// targets): their texts by their paths from the root.
using SourceTree = std::map<std::string, std::string>;

/// Reads the tree below a folder, in those of its folders that hold code of ours.
SourceTree readSourceTree(const std::filesystem::path& root);

/// The tree of this very project.
const SourceTree& ourSourceTree();

/// The paths of the files of one kind, such as ".cpp".
std::vector<std::string> filesEndingIn(const SourceTree& tree, std::string_view ending);

/// The paths of what is compiled: first C++, then Objective-C++.
std::vector<std::string> sourcesOf(const SourceTree& tree);

/// "a/b" for "a/b/c.cpp"; empty for a file of the root.
std::string folderOf(std::string_view path);

}  // namespace quobrak::house
