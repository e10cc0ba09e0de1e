#pragma once

#include <memory>
#include <string>

#include "platform/foundation/Clock.h"
#include "platform/foundation/FileManager.h"

namespace quobrak {

/// A file manager with which each file that is written takes a millisecond at least. Without it two measures of one
/// name, written one after the other, could get the same time in their file names, and one would be lost: on virtual
/// time any two, and on the machine's clock most, since disks are faster than that.
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
