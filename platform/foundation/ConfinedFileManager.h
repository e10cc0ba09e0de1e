#pragma once

#include "platform/foundation/FileManager.h"

namespace quobrak {

/// The local disk, with a Documents directory that stands in for an application's sandbox: a path that resolves,
/// lexically or through links, to outside that directory is refused, except that `fileExists` answers for any path.
/// A ".." that stays inside is allowed.
class ConfinedFileManager final : public FileManager {
 public:
  /// `documentDirectory` must exist; relative paths and links in it are resolved now, so that the working directory
  /// may change later. Throws `FileManagerError` where it does not exist or is no directory.
  explicit ConfinedFileManager(const std::string& documentDirectory);

  std::string documentDirectory() const override;
  bool fileExists(const std::string& path) const override;
  void removeItem(const std::string& path) override;
  void createDirectory(const std::string& path) override;
  std::string readText(const std::string& path) const override;
  void write(DataView data, const std::string& path) override;

 private:
  std::string root_;
};

}  // namespace quobrak
