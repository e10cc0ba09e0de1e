#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/foundation/FileManager.h"

namespace quobrak::faults {

/// A file operation that is asked for.
struct FileCall {
  /// "fileExists", "removeItem", "createDirectory", "readText" or "write".
  std::string_view operation;
  const std::string& path;
  /// What is to be written; empty where nothing is.
  DataView data;
};

/// A file manager around another one: every call that touches the disk passes through one place, where it can be
/// counted, failed, or left undone.
class WatchedFileManager final : public FileManager {
 public:
  /// Called in place of each operation; `carryOut` does it. What this raises, the operation raises. A question that is
  /// not carried out is answered no, as on a disk that cannot be asked.
  using Around = std::function<void(const FileCall& call, const std::function<void()>& carryOut)>;

  WatchedFileManager(std::unique_ptr<FileManager> manager, Around around)
      : manager_(std::move(manager)), around_(std::move(around)) {}

  std::string documentDirectory() const override { return manager_->documentDirectory(); }
  bool fileExists(const std::string& path) const override {
    bool exists = false;
    around_({"fileExists", path, {}}, [&] { exists = manager_->fileExists(path); });
    return exists;
  }
  void removeItem(const std::string& path) override {
    around_({"removeItem", path, {}}, [&] { manager_->removeItem(path); });
  }
  void createDirectory(const std::string& path) override {
    around_({"createDirectory", path, {}}, [&] { manager_->createDirectory(path); });
  }
  std::string readText(const std::string& path) const override {
    std::string text;
    around_({"readText", path, {}}, [&] { text = manager_->readText(path); });
    return text;
  }
  void write(DataView data, const std::string& path) override {
    around_({"write", path, data}, [&] { manager_->write(data, path); });
  }

 private:
  std::unique_ptr<FileManager> manager_;
  Around around_;
};

}  // namespace quobrak::faults
