#pragma once

#include <string>

#include "platform/foundation/Data.h"

namespace quobrak {

/// Operations on files of the Documents directory. Paths are relative to it. All raise
/// `FWKTError::documentDirectoryError`, with the platform's description of what went wrong unless said otherwise.
class File {
 public:
  File() = delete;

  /// The text of a file. Whatever is wrong with the file, the message says that it is missing.
  static std::string readFileInDocumentDirectory(const std::string& path);
  /// That message.
  static std::string missingFileMessage(const std::string& path);

  /// Writes a file, replacing what it held, and creates its folder where that is missing.
  static void writeFileToDocumentDirectory(const std::string& path, DataView data);

  /// Creates a folder and those above it. A folder that exists is no error.
  static void createFolderInDocumentDirectory(const std::string& path);

  /// Removes a file, or a folder with everything in it. Does nothing where there is none.
  static void removeFilesInDocumentDirectory(const std::string& path);

  /// Clears what an earlier run left: all results in the first iteration, only the measures in later ones.
  static void clearDocumentDirectory();
};

}  // namespace quobrak
