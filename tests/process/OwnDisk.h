#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace quobrak::testing {

/// A disk in memory, at a folder, which this process alone sees. A program that is linked with it is skipped as a whole
/// where no disk can be mounted.
class OwnDisk {
 public:
  /// `room` is the file system's, such as "size=64k".
  OwnDisk(std::filesystem::path folder, const std::string& room);
  ~OwnDisk();
  OwnDisk(const OwnDisk&) = delete;
  OwnDisk& operator=(const OwnDisk&) = delete;

 private:
  std::filesystem::path folder_;
};

/// Room for so many pages of memory, of which every file takes at least one.
std::string sizeInPages(std::size_t count);

/// Room for so many files and folders.
std::string sizeInNodes(std::size_t count);

}  // namespace quobrak::testing
