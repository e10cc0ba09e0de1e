#include "host/run/Files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "host/Subcommand.h"
#include "host/run/FileDescriptor.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const char* operation, const fs::path& path, int error) {
  throw EnvironmentError(shown(path.native()) + " cannot be " + operation + ": " + reasonOf(error));
}

}  // namespace

std::string reasonOf(int error) {
  return std::generic_category().message(error);
}

void writeNewFile(const fs::path& file, std::string_view bytes) {
  constexpr mode_t EVERYBODY_AS_ALLOWED = 0666;
  const FileDescriptor descriptor(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, EVERYBODY_AS_ALLOWED));
  if (!descriptor.isOpen()) {
    fail("written", file, errno);
  }
  while (!bytes.empty()) {
    const ssize_t size = ::write(descriptor.number(), bytes.data(), bytes.size());
    if (size < 0) {
      fail("written", file, errno);
    }
    bytes.remove_prefix(static_cast<std::size_t>(size));
  }
}

std::string writingFault(const fs::path& folder, std::size_t size) {
  const fs::path trial = folder / ".room";
  std::string fault;
  try {
    writeNewFile(trial, std::string(size, ' '));
  } catch (const EnvironmentError& error) {
    fault = error.what();
  }
  std::error_code ignored;
  fs::remove(trial, ignored);
  return fault;
}

void makeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) {
    fail("made", folder, error.value());
  }
}

}  // namespace quobrak::host
