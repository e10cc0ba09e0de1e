#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::testing {

/// A folder of its own for a test, removed with all that is in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  /// In the folder `parent`, which must exist.
  explicit TemporaryFolder(const std::filesystem::path& parent);
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

  /// Writes a file, and makes its folders.
  void write(const std::filesystem::path& file, std::string_view content) const;

  /// The content of a file; the test fails where there is none.
  std::string read(const std::filesystem::path& file) const;

  /// The paths of all files below the folder, from the folder on, in ascending order.
  std::vector<std::string> files() const;

 private:
  std::filesystem::path path_;
};

}  // namespace quobrak::testing
