#pragma once

#include <memory>
#include <string>

#include "platform/foundation/Clock.h"
#include "platform/foundation/FileManager.h"

namespace quobrak {

/// A file manager for runs on virtual time: each file that is written takes one millisecond. Without it two measures of
/// one name, written one after the other, would get the same time in their file names, and one would be lost.
class TimedFileManager final : public FileManager {
 public:
  /// `clock` must outlive the file manager.
  TimedFileManager(std::unique_ptr<FileManager> manager, Clock& clock) : manager_(std::move(manager)), clock_(clock) {}

  std::string documentDirectory() const override { return manager_->documentDirectory(); }
  bool fileExists(const std::string& path) const override { return manager_->fileExists(path); }
  void removeItem(const std::string& path) override { manager_->removeItem(path); }
  void createDirectory(const std::string& path) override { manager_->createDirectory(path); }
  std::string readText(const std::string& path) const override { return manager_->readText(path); }
  void write(DataView data, const std::string& path) override;

 private:
  std::unique_ptr<FileManager> manager_;
  Clock& clock_;
};

}  // namespace quobrak
