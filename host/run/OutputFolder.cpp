#include "host/run/OutputFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "host/Subcommand.h"
#include "host/check/ScriptPaths.h"
#include "host/run/Files.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace fs = std::filesystem;

namespace {

constexpr const char* LOCK = ".lock";
constexpr mode_t EVERYBODY_AS_ALLOWED = 0777;
constexpr mode_t READ_AND_WRITE_AS_ALLOWED = 0666;

std::string nameOf(const fs::path& folder) {
  return shown(folder.native());
}

[[noreturn]] void refuse(const fs::path& folder, const std::string& reason) {
  throw EnvironmentError("the results cannot be written to " + nameOf(folder) + ": " + reason);
}

/// The names in the folder but those of the lock and the marker, sorted.
std::vector<std::string> contentsOf(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const fs::path name = entry->path().filename();
    if (name != LOCK && name != RESULTS_MARKER) {
      names.push_back(shown(name.native()));
    }
  }
  if (error) {
    refuse(folder, error.message());
  }
  std::sort(names.begin(), names.end());
  return names;
}

/// "a, b, c and 4 more".
std::string someOf(const std::vector<std::string>& names) {
  constexpr std::size_t MOST_NAMES = 3;
  std::string text = names.front();
  for (std::size_t i = 1; i < std::min(names.size(), MOST_NAMES); ++i) {
    text += (i + 1 == names.size() ? " and " : ", ") + names[i];
  }
  return names.size() <= MOST_NAMES ? text : text + " and " + std::to_string(names.size() - MOST_NAMES) + " more";
}

void requireEmpty(const fs::path& folder) {
  if (const std::vector<std::string> names = contentsOf(folder); !names.empty()) {
    throw UseError("the folder " + nameOf(folder) + " has " + someOf(names) +
                   " in it already, and nothing is overwritten: choose another folder with --out, or empty this one");
  }
}

[[noreturn]] void refuseUsedFolder(const fs::path& folder, int lock) {
  constexpr std::size_t MOST_DIGITS = 20;
  std::array<char, MOST_DIGITS> digits{};
  const ssize_t size = ::pread(lock, digits.data(), digits.size(), 0);
  const std::string number(digits.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  throw UseError("the folder " + nameOf(folder) + " is in use by another run" +
                 (number.empty() ? "" : ", process " + shown(number)) +
                 ": wait for its end, or choose another folder with --out");
}

/// Whether what is locked is the file of that name, and not one that the run before has removed at its end.
bool isStillNamed(int lock, const fs::path& file) {
  struct stat locked {};
  struct stat named {};
  return ::fstat(lock, &locked) == 0 && ::lstat(file.c_str(), &named) == 0 && locked.st_dev == named.st_dev &&
         locked.st_ino == named.st_ino;
}

/// The lock file, locked. One that is there already and locked by another run stays as it is.
FileDescriptor lockFolder(const fs::path& folder) {
  const fs::path file = folder / LOCK;
  while (true) {
    FileDescriptor lock(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, READ_AND_WRITE_AS_ALLOWED));
    if (!lock.isOpen()) {
      refuse(folder, reasonOf(errno));
    }
    if (::flock(lock.number(), LOCK_EX | LOCK_NB) != 0) {
      if (errno == EWOULDBLOCK) {
        refuseUsedFolder(folder, lock.number());
      }
      refuse(folder, reasonOf(errno));
    }
    if (isStillNamed(lock.number(), file)) {
      return lock;
    }
  }
}

bool writeProcessNumber(int lock) {
  const std::string number = std::to_string(::getpid());
  return ::ftruncate(lock, 0) == 0 && ::pwrite(lock, number.data(), number.size(), 0) >= 0;
}

/// Whether the marker is there: one of a run that left nothing else stays.
bool markAsResults(const fs::path& folder) {
  return FileDescriptor(::open((folder / RESULTS_MARKER).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                               READ_AND_WRITE_AS_ALLOWED))
      .isOpen();
}

/// `lock` is the lock file of the folder.
void takeFolder(const fs::path& folder, int lock) {
  if (!writeProcessNumber(lock) || !markAsResults(folder)) {
    const std::string reason = reasonOf(errno);
    ::unlink((folder / LOCK).c_str());
    refuse(folder, reason);
  }
}

/// Whether another run has it, so that what is in it is that run's.
bool isLocked(const fs::path& folder) {
  const FileDescriptor lock(::open((folder / LOCK).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW));
  return lock.isOpen() && ::flock(lock.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace

OutputFolder::OutputFolder(fs::path folder) : path_(std::move(folder)), lock_(lockFolder(path_)) {
  takeFolder(path_, lock_.number());
}

OutputFolder::~OutputFolder() {
  if (lock_.isOpen()) {
    // Before the lock is given up, so that it is never the lock of the next run that is removed.
    ::unlink((path_ / LOCK).c_str());
  }
}

OutputFolder OutputFolder::chosen(const fs::path& folder) {
  std::error_code unknown;
  const fs::file_status status = fs::status(folder, unknown);
  if (fs::exists(status) && !fs::is_directory(status)) {
    throw UseError("--out is " + nameOf(folder) + ", which is no folder: choose a new or an empty folder");
  }
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) {
    refuse(folder, error.message());
  }
  if (!isLocked(folder)) {
    requireEmpty(folder);
  }
  OutputFolder locked(folder);
  // A run that has ended since then has left its results.
  requireEmpty(folder);
  return locked;
}

OutputFolder OutputFolder::dated(const fs::path& parent, const std::tm& time) {
  std::error_code error;
  fs::create_directories(parent, error);
  if (error) {
    refuse(parent, error.message());
  }
  constexpr std::size_t LONGEST = 32;
  std::array<char, LONGEST> text{};
  const std::string name(text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d-%H%M%S", &time));
  fs::path folder = parent / name;
  for (int number = 2; ::mkdir(folder.c_str(), EVERYBODY_AS_ALLOWED) != 0; ++number) {
    if (errno != EEXIST) {
      refuse(folder, reasonOf(errno));
    }
    folder = parent / (name + "-" + std::to_string(number));
  }
  return OutputFolder(folder);
}

}  // namespace quobrak::host
