#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/foundation/FileManager.h"

namespace quobrak::testing {

/// A file manager that can fail: `before` is called with the name of each operation ("removeItem", "createDirectory",
/// "readText", "write") and its path, before it is carried out, and may throw in its place.
class FaultyFileManager final : public FileManager {
 public:
  using Before = std::function<void(std::string_view operation, const std::string& path)>;

  explicit FaultyFileManager(std::unique_ptr<FileManager> manager) : manager_(std::move(manager)) {}

  Before before = [](std::string_view, const std::string&) {};

  std::string documentDirectory() const override { return manager_->documentDirectory(); }
  bool fileExists(const std::string& path) const override { return manager_->fileExists(path); }
  void removeItem(const std::string& path) override {
    before("removeItem", path);
    manager_->removeItem(path);
  }
  void createDirectory(const std::string& path) override {
    before("createDirectory", path);
    manager_->createDirectory(path);
  }
  std::string readText(const std::string& path) const override {
    before("readText", path);
    return manager_->readText(path);
  }
  void write(DataView data, const std::string& path) override {
    before("write", path);
    manager_->write(data, path);
  }

 private:
  std::unique_ptr<FileManager> manager_;
};

}  // namespace quobrak::testing
