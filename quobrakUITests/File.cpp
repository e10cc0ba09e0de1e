#include "quobrakUITests/File.h"

#include "platform/foundation/FileManager.h"
#include "platform/foundation/Paths.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

std::string urlOf(const std::string& path) {
  return appendingPathComponent(FileManager::defaultManager().documentDirectory(), path);
}

}  // namespace

std::string File::readFileInDocumentDirectory(const std::string& path) {
  try {
    return FileManager::defaultManager().readText(urlOf(path));
  } catch (const FileManagerError&) {
    throw FWKTError::documentDirectoryError(missingFileMessage(path));
  }
}

std::string File::missingFileMessage(const std::string& path) {
  return "The file " + path + " is missing in the document directory";
}

void File::writeFileToDocumentDirectory(const std::string& path, DataView data) {
  const std::string folder = deletingLastPathComponent(path);
  // Asked of the folder as it stands, not within the Documents directory: a wrong yes would only skip the creation, and
  // the test process works in "/", where no such folder is expected.
  if (!FileManager::defaultManager().fileExists(folder)) {
    createFolderInDocumentDirectory(folder);
  }
  try {
    FileManager::defaultManager().write(data, urlOf(path));
  } catch (const FileManagerError& error) {
    throw FWKTError::documentDirectoryError(error.what());
  }
}

void File::createFolderInDocumentDirectory(const std::string& path) {
  try {
    FileManager::defaultManager().createDirectory(urlOf(path));
  } catch (const FileManagerError& error) {
    throw FWKTError::documentDirectoryError(error.what());
  }
}

void File::removeFilesInDocumentDirectory(const std::string& path) {
  const std::string url = urlOf(path);
  if (!FileManager::defaultManager().fileExists(url)) {
    return;
  }
  try {
    FileManager::defaultManager().removeItem(url);
  } catch (const FileManagerError& error) {
    throw FWKTError::documentDirectoryError(error.what());
  }
}

void File::clearDocumentDirectory() {
  if (TestContext::shared().getIteration() == 1) {
    removeFilesInDocumentDirectory("tests-results");
    removeFilesInDocumentDirectory("measures");
    removeFilesInDocumentDirectory("testsStatus.json");
  } else {
    removeFilesInDocumentDirectory("measures");
  }
}

}  // namespace quobrak
