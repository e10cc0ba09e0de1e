#pragma once

#include <filesystem>
#include <system_error>
#include <vector>

namespace quobrak {

/// Folders that are made for a run, and that vanish again where the run turns out not to be possible.
class MadeFolders {
 public:
  /// Makes the folder and those above it that are missing. Where that fails the folder is missing afterwards, and
  /// `failure` tells why.
  explicit MadeFolders(const std::filesystem::path& folder);

  /// Removes what was made, as far as it is still empty, unless it was kept.
  ~MadeFolders();

  MadeFolders(const MadeFolders&) = delete;
  MadeFolders& operator=(const MadeFolders&) = delete;

  void keep() { made_.clear(); }

  /// Why the folder could not be made; no error where it could, or was there.
  const std::error_code& failure() const { return failure_; }

 private:
  /// The innermost first.
  std::vector<std::filesystem::path> made_;
  std::error_code failure_;
};

}  // namespace quobrak
