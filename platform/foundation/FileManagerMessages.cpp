#include "platform/foundation/FileManagerMessages.h"

#include <cerrno>
#include <cstddef>

#include "platform/foundation/Unicode.h"

namespace quobrak {

namespace {

/// Fit to be read and passed on by anyone: a name on a disk may hold bytes that are no text, and a NUL would end the
/// sentence early for whoever reads it as a C string.
std::string quoted(std::string_view name) {
  std::string readable = repairedUTF8(name);
  for (std::size_t nul = readable.find('\0'); nul != std::string::npos; nul = readable.find('\0', nul)) {
    readable.replace(nul, 1, "\uFFFD");
  }
  return "“" + readable + "”";
}

std::string savingMessage(int errorNumber, const std::string& name, const std::string& folder) {
  switch (errorNumber) {
    case EACCES:
    case EPERM:
      return "You don’t have permission to save the file " + name + " in the folder " + folder + ".";
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return "You can’t save the file " + name + " because the volume is out of space.";
    case EROFS:
      return "You can’t save the file " + name + " because the volume is read only.";
    case ENOENT:
    case ENOTDIR:
      return "The folder " + folder + " doesn’t exist.";
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
      return "The file name " + name + " is invalid.";
    case EEXIST:
      return "The file " + name + " couldn’t be saved in the folder " + folder +
             " because a file with the same name already exists.";
    default:
      return "The file " + name + " couldn’t be saved in the folder " + folder + ".";
  }
}

std::string readingMessage(int errorNumber, const std::string& name) {
  const std::string failure = "The file " + name + " couldn’t be opened";
  switch (errorNumber) {
    case ENOENT:
    case ENOTDIR:
      return failure + " because there is no such file.";
    case EACCES:
    case EPERM:
      return failure + " because you don’t have permission to view it.";
    case EILSEQ:
      return failure + " because the text encoding of its contents can’t be determined.";
    default:
      return failure + ".";
  }
}

std::string removingMessage(int errorNumber, const std::string& name) {
  const std::string failure = name + " couldn’t be removed";
  switch (errorNumber) {
    case ENOENT:
      return failure + " because it doesn’t exist.";
    case EACCES:
    case EPERM:
      return failure + " because you don’t have permission to access it.";
    case EROFS:
      return failure + " because the volume is read only.";
    default:
      return failure + ".";
  }
}

}  // namespace

std::string fileManagerMessage(FileOperation operation, int errorNumber, std::string_view name,
                               std::string_view folder) {
  switch (operation) {
    case FileOperation::saving:
      return savingMessage(errorNumber, quoted(name), quoted(folder));
    case FileOperation::reading:
      return readingMessage(errorNumber, quoted(name));
    case FileOperation::removing:
      break;
  }
  return removingMessage(errorNumber, quoted(name));
}

}  // namespace quobrak
