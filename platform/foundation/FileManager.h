#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "platform/foundation/Data.h"

namespace quobrak {

/// A file operation that failed. `what()` is the platform's localised description: a sentence that names the file.
class FileManagerError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The platform's file manager. Paths are texts in UTF-8; relative ones start at the working directory.
class FileManager {
 public:
  virtual ~FileManager() = default;

  /// The Documents directory of the current user, as an absolute path.
  virtual std::string documentDirectory() const = 0;

  virtual bool fileExists(const std::string& path) const = 0;

  /// Removes a file, a link (not what it points to) or a folder with everything in it. Throws `FileManagerError`.
  virtual void removeItem(const std::string& path) = 0;

  /// Creates the directory and those above it that are missing. A directory that exists already is no error. Throws
  /// `FileManagerError`.
  virtual void createDirectory(const std::string& path) = 0;

  /// The text of a file, in the encoding that its byte-order mark tells, else UTF-8. Throws `FileManagerError` where
  /// the file cannot be read or is not text in that encoding.
  virtual std::string readText(const std::string& path) const = 0;

  /// Writes the bytes to the file, replacing what it held. Throws `FileManagerError`; the file then holds what it held
  /// before.
  virtual void write(DataView data, const std::string& path) = 0;

  /// The file manager that the whole process uses. Fatal where none is installed.
  static FileManager& defaultManager();

  /// To be called once, before anything touches a file.
  static void install(std::unique_ptr<FileManager> manager);
};

}  // namespace quobrak
