#include "platform/foundation/ConfinedFileManager.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <random>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/foundation/FileManagerMessages.h"
#include "platform/foundation/Paths.h"
#include "platform/foundation/Unicode.h"

namespace quobrak {

namespace {

namespace fs = std::filesystem;

// As many as the kernel follows.
constexpr int MAXIMUM_LINKS = 40;

// Inside this file a failure is an error number; `reporting` makes the sentence of it, once, at the edge.
[[noreturn]] void fail(int errorNumber) {
  throw std::system_error(errorNumber, std::generic_category());
}

// The name of the folder that the path's last component stands in.
std::string folderName(const std::string& path) {
  const std::string folder = deletingLastPathComponent(path);
  std::error_code ignored;
  return lastPathComponent(folder.empty() ? fs::current_path(ignored).string() : folder);
}

[[noreturn]] void report(FileOperation operation, int errorNumber, const std::string& path) {
  throw FileManagerError(fileManagerMessage(operation, errorNumber, lastPathComponent(path), folderName(path)));
}

// Runs the body and gives its failures the words of the operation on the path.
template <typename Body>
auto reporting(FileOperation operation, const std::string& path, Body body) {
  try {
    return body();
  } catch (const std::system_error& error) {
    report(operation, error.code().value(), path);
  }
}

// Calls a function of the system anew for as long as signals interrupt it.
template <typename Call>
auto uninterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) {
    result = call();
  }
  if (result == -1) {
    fail(errno);
  }
  return result;
}

class OpenFile {
 public:
  OpenFile(const std::string& path, int flags, mode_t mode)
      : descriptor_(uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW, mode); })) {}

  ~OpenFile() {
    if (descriptor_ != CLOSED) {
      ::close(descriptor_);
    }
  }

  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  struct stat status() const {
    struct stat result = {};
    uninterrupted([&] { return ::fstat(descriptor_, &result); });
    return result;
  }

  void setMode(mode_t mode) const {
    uninterrupted([&] { return ::fchmod(descriptor_, mode); });
  }

  // Fills as much of the buffer as there is to read now; 0 at the end of the file.
  std::size_t read(char* buffer, std::size_t size) const {
    return static_cast<std::size_t>(uninterrupted([&] { return ::read(descriptor_, buffer, size); }));
  }

  // Writes all of it, from that many bytes after the beginning of the file on.
  void write(DataView data, std::size_t offset) const {
    while (!data.empty()) {
      const auto count =
          uninterrupted([&] { return ::pwrite(descriptor_, data.data(), data.size(), static_cast<off_t>(offset)); });
      data = data.subspan(static_cast<std::size_t>(count));
      offset += static_cast<std::size_t>(count);
    }
  }

  void setSize(std::size_t size) const {
    uninterrupted([&] { return ::ftruncate(descriptor_, static_cast<off_t>(size)); });
  }

  // Some file systems tell only now that a write failed. An interrupted close has closed all the same.
  void close() {
    if (::close(std::exchange(descriptor_, CLOSED)) == -1 && errno != EINTR) {
      fail(errno);
    }
  }

 private:
  static constexpr int CLOSED = -1;

  int descriptor_;
};

std::string randomHiddenName() {
  std::random_device random;
  std::array<char, 32> name = {};
  std::snprintf(name.data(), name.size(), ".quobrak-%08x%08x", random(), random());
  return name.data();
}

// A new file in a folder, which goes away again unless it is moved into place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& folder)
      : path_(appendingPathComponent(folder, randomHiddenName())), file_(path_, O_WRONLY | O_CREAT | O_EXCL, 0666) {}

  // Once the file has been moved there is nothing left under its first name.
  ~TemporaryFile() { ::unlink(path_.c_str()); }

  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const OpenFile& file() const { return file_; }

  void moveOver(const std::string& target) {
    file_.close();
    fs::rename(path_, target);
  }

 private:
  std::string path_;
  OpenFile file_;
};

bool isInside(const std::string& root, const std::string& path) {
  return root == "/" || path == root || (path.starts_with(root) && path[root.size()] == '/');
}

enum class LastLink { followed, kept };

// Follows an absolute path component by component, as the kernel would, so that it is known where the path leads before
// anything there is touched. What is missing on the way does no harm: below it there are no links.
class PathWalk {
 public:
  PathWalk(const std::string& root, const std::string& path, LastLink lastLink) : root_(root), lastLink_(lastLink) {
    expect(path);
  }

  // The canonical path that the walk leads to; fails with EACCES where that is outside the root.
  std::string destination() {
    while (!ahead_.empty()) {
      const std::string component = std::move(ahead_.back());
      ahead_.pop_back();
      if (component == "..") {
        goUp();
      } else if (component != ".") {
        goInto(component);
      }
    }
    if (!isInside(root_, reached_)) {
      fail(EACCES);
    }
    return reached_;
  }

 private:
  // What there is outside the root is not to be learnt from the kind of failure.
  [[noreturn]] void failHere(int errorNumber) const { fail(isInside(root_, reached_) ? errorNumber : EACCES); }

  void expect(std::string_view path) {
    std::size_t end = path.size();
    while (end > 0) {
      const std::size_t start = path.substr(0, end).rfind('/') + 1;
      if (start < end) {
        ahead_.emplace_back(path.substr(start, end - start));
      }
      end = start == 0 ? 0 : start - 1;
    }
  }

  void goUp() {
    if (obstacle_ != 0) {
      failHere(obstacle_);
    }
    reached_ = deletingLastPathComponent(reached_);
  }

  void goInto(const std::string& component) {
    reached_ = appendingPathComponent(reached_, component);
    if (obstacle_ != 0) {
      return;
    }
    std::error_code error;
    switch (fs::symlink_status(reached_, error).type()) {
      case fs::file_type::directory:
        return;
      case fs::file_type::not_found:
        obstacle_ = ENOENT;
        return;
      case fs::file_type::none:
        failHere(error.value());
      case fs::file_type::symlink:
        if (lastLink_ == LastLink::followed || !ahead_.empty()) {
          follow();
          return;
        }
        [[fallthrough]];
      default:
        obstacle_ = ENOTDIR;
    }
  }

  void follow() {
    ++links_;
    if (links_ > MAXIMUM_LINKS) {
      failHere(ELOOP);
    }
    std::error_code error;
    const std::string target = fs::read_symlink(reached_, error).string();
    if (error) {
      failHere(error.value());
    }
    reached_ = target.starts_with('/') ? "/" : deletingLastPathComponent(reached_);
    expect(target);
  }

  const std::string& root_;
  LastLink lastLink_;
  std::string reached_ = "/";
  std::vector<std::string> ahead_;  // the next component at the back
  int obstacle_ = 0;                // why nothing can stand below what is reached: ENOENT, ENOTDIR or 0
  int links_ = 0;
};

// The absolute path, its dots and links still in it.
std::string absolutePath(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) {
    fail(EINVAL);
  }
  return fs::absolute(path).string();
}

// The absolute path; fails with EACCES where it reads as if it led to outside the root.
std::string lexicallyConfined(const std::string& root, const std::string& path) {
  std::string absolute = absolutePath(path);
  if (!isInside(root, fs::path(absolute).lexically_normal().string())) {
    fail(EACCES);
  }
  return absolute;
}

// Where the path leads, free of dots and links; fails with EACCES where that is outside the root or reads as if it
// were.
std::string confined(const std::string& root, const std::string& path, LastLink lastLink) {
  return PathWalk(root, lexicallyConfined(root, path), lastLink).destination();
}

// The permissions of a file that is about to be replaced; none where there is no file yet.
std::optional<mode_t> modeOfFile(const std::string& path) {
  struct stat status = {};
  if (::lstat(path.c_str(), &status) == -1) {
    if (errno == ENOENT) {
      return std::nullopt;
    }
    fail(errno);
  }
  if (!S_ISREG(status.st_mode)) {
    fail(EISDIR);
  }
  return status.st_mode & 07777U;
}

void writeBesideAndMove(DataView data, const std::string& path, std::optional<mode_t> mode) {
  TemporaryFile temporary(deletingLastPathComponent(path));
  temporary.file().write(data, 0);
  if (mode) {
    temporary.file().setMode(*mode);
  }
  temporary.moveOver(path);
}

// What goes beyond the old end comes first: it alone needs more room, and where that is missing the file is cut back to
// what it held.
void writeInPlace(DataView data, const std::string& path) {
  OpenFile file(path, O_WRONLY, 0);
  const auto oldSize = static_cast<std::size_t>(file.status().st_size);
  const std::size_t overwritten = std::min(oldSize, data.size());
  try {
    file.write(data.subspan(overwritten), oldSize);
  } catch (const std::system_error&) {
    file.setSize(oldSize);
    throw;
  }
  file.write(data.first(overwritten), 0);
  file.setSize(data.size());
  file.close();
}

void writeFile(DataView data, const std::string& path) {
  const std::optional<mode_t> mode = modeOfFile(path);
  if (mode && ::access(path.c_str(), W_OK) == -1) {
    fail(errno);
  }
  try {
    writeBesideAndMove(data, path, mode);
  } catch (const std::system_error& error) {
    // A file can be writable in a folder that is not.
    if (!mode || error.code().value() != EACCES) {
      throw;
    }
    writeInPlace(data, path);
  }
}

std::string readFile(const std::string& path) {
  // Without O_NONBLOCK a FIFO that nobody writes to would hang the run.
  const OpenFile file(path, O_RDONLY | O_NONBLOCK, mode_t{0});
  const struct stat status = file.status();
  if (!S_ISREG(status.st_mode)) {
    fail(EISDIR);
  }
  // One byte more than there should be, so that the end of the file shows without making room.
  std::string bytes(static_cast<std::size_t>(status.st_size) + 1, '\0');
  std::size_t length = 0;
  while (const std::size_t count = file.read(bytes.data() + length, bytes.size() - length)) {
    length += count;
    if (length == bytes.size()) {
      bytes.resize(2 * length);
    }
  }
  bytes.resize(length);
  return bytes;
}

void ensureFolder(const std::string& path) {
  if (::mkdir(path.c_str(), 0777) == 0) {
    return;
  }
  const int errorNumber = errno;
  std::error_code ignored;
  if (!fs::is_directory(path, ignored)) {
    report(FileOperation::saving, errorNumber, path);
  }
}

}  // namespace

ConfinedFileManager::ConfinedFileManager(const std::string& documentDirectory) {
  root_ = reporting(FileOperation::reading, documentDirectory, [&] {
    const fs::path root = fs::canonical(absolutePath(documentDirectory));
    if (!fs::is_directory(root)) {
      fail(ENOTDIR);
    }
    return root.string();
  });
}

std::string ConfinedFileManager::documentDirectory() const {
  return root_;
}

bool ConfinedFileManager::fileExists(const std::string& path) const {
  std::error_code ignored;
  return path.find('\0') == std::string::npos && fs::exists(fs::status(path, ignored));
}

void ConfinedFileManager::removeItem(const std::string& path) {
  reporting(FileOperation::removing, path, [&] {
    const std::string target = confined(root_, path, LastLink::kept);
    if (target == root_) {
      fail(EACCES);
    }
    if (!fs::exists(fs::symlink_status(target))) {
      fail(ENOENT);
    }
    fs::remove_all(target);
  });
}

void ConfinedFileManager::createDirectory(const std::string& path) {
  reporting(FileOperation::saving, path, [&] {
    const std::string absolute = lexicallyConfined(root_, path);
    ensureFolder(root_);
    // From there on, folder by folder as written, so that a ".." finds the folder before it.
    for (std::size_t end = std::min(root_.size(), absolute.size()); end < absolute.size();) {
      end = std::min(absolute.find('/', end + 1), absolute.size());
      const std::string folder = absolute.substr(0, end);
      reporting(FileOperation::saving, folder, [&] { ensureFolder(confined(root_, folder, LastLink::followed)); });
    }
  });
}

std::string ConfinedFileManager::readText(const std::string& path) const {
  return reporting(FileOperation::reading, path, [&] {
    std::optional<std::string> text = decodedText(readFile(confined(root_, path, LastLink::followed)));
    if (!text) {
      fail(EILSEQ);
    }
    return *std::move(text);
  });
}

void ConfinedFileManager::write(DataView data, const std::string& path) {
  reporting(FileOperation::saving, path, [&] { writeFile(data, confined(root_, path, LastLink::followed)); });
}

}  // namespace quobrak
