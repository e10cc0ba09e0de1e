#include "platform/foundation/FileManager.h"

#include <utility>

#include "platform/foundation/FatalError.h"

namespace quobrak {

namespace {

std::unique_ptr<FileManager>& installedManager() {
  static std::unique_ptr<FileManager> manager;
  return manager;
}

}  // namespace

FileManager& FileManager::defaultManager() {
  if (installedManager() == nullptr) {
    fatalError("No file manager is installed.");
  }
  return *installedManager();
}

void FileManager::install(std::unique_ptr<FileManager> manager) {
  installedManager() = std::move(manager);
}

}  // namespace quobrak
