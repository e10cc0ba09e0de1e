#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quobrak::host {

/// A change of what was printed, where it tells of the machine or the hour: a regular expression and what replaces each
/// match.
struct Mask {
  std::string pattern;
  std::string replacement;
};

/// What one picture shows.
struct Scene {
  /// That of its file, without its extension.
  std::string name;
  /// In words, for those who do not see it.
  std::string title;
  /// A shell line that is not shown and lays out what the others need; may be empty.
  std::string preparation;
  /// Shell lines, which are shown.
  std::vector<std::string> lines;
  std::vector<Mask> masks = {};
};

/// The pictures of the documentation.
const std::vector<Scene>& scenes();

/// What a scene is played with.
struct Stage {
  /// Where the programs are.
  std::filesystem::path programs;
  /// The root of the sources: what lies in it is at hand as "examples".
  std::filesystem::path sources;
  /// An empty folder to play in. Where it is named in what is printed, the picture has "~".
  std::filesystem::path folder;
};

/// Runs the lines and draws what they print, on both streams, in colour. Throws `std::runtime_error` where a line
/// cannot be run at all, or the preparation fails.
std::string pictureOf(const Scene& scene, const Stage& stage);

}  // namespace quobrak::host
