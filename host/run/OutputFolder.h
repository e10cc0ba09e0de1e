#pragma once

#include <cstddef>
#include <ctime>
#include <filesystem>

#include "host/run/FileDescriptor.h"

namespace quobrak::host {

/// The folder that receives all that a run leaves. It is this run's alone for as long as this object lives: a file
/// `.lock` in it, which is locked and holds the number of this process, keeps others out. It is marked as a folder of
/// results, and stays so, so that nobody takes what is in it for scripts.
class OutputFolder {
 public:
  /// A folder that somebody chose: it must not exist yet, or be empty but for the mark. Throws `UseError` where it
  /// holds anything or another run uses it, and leaves it as it was; `EnvironmentError` where it cannot be made or
  /// written.
  static OutputFolder chosen(const std::filesystem::path& folder);

  /// A new folder in `parent`, which is made when missing. Its name is the time, as in "2026-03-01-140509", with "-2"
  /// and so on behind it where there is one already. Throws `EnvironmentError`.
  static OutputFolder dated(const std::filesystem::path& parent, const std::tm& time);

  OutputFolder(OutputFolder&&) = default;
  OutputFolder& operator=(OutputFolder&&) = delete;
  /// Removes the file `.lock`.
  ~OutputFolder();

  const std::filesystem::path& path() const { return path_; }

 private:
  /// Locks an empty folder, and marks it.
  explicit OutputFolder(std::filesystem::path folder);

  std::filesystem::path path_;
  FileDescriptor lock_;
};

}  // namespace quobrak::host
