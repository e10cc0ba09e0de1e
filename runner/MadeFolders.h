#pragma once

#include <filesystem>
#include <vector>

namespace quobrak {

/// Folders that are made for a run, and that vanish again where the run turns out not to be possible.
class MadeFolders {
 public:
  /// Makes the folder and those above it that are missing. Where that fails the folder is missing afterwards.
  explicit MadeFolders(const std::filesystem::path& folder);

  /// Removes what was made, as far as it is still empty, unless it was kept.
  ~MadeFolders();

  MadeFolders(const MadeFolders&) = delete;
  MadeFolders& operator=(const MadeFolders&) = delete;

  void keep() { made_.clear(); }

 private:
  /// The innermost first.
  std::vector<std::filesystem::path> made_;
};

}  // namespace quobrak
