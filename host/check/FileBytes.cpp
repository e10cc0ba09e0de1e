#include "host/check/FileBytes.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

#include "host/Subcommand.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace {

[[noreturn]] void refuse(const std::filesystem::path& file, const std::error_code& reason) {
  throw EnvironmentError("the file " + shown(file.string()) + " cannot be read: " + reason.message());
}

}  // namespace

std::string fileBytes(const std::filesystem::path& file) {
  // A folder opens, and cannot be read.
  std::error_code error;
  if (std::filesystem::is_directory(file, error)) {
    refuse(file, std::make_error_code(std::errc::is_a_directory));
  }
  std::ifstream stream(file, std::ios::binary);
  if (!stream.is_open()) {
    refuse(file, {errno, std::generic_category()});
  }
  std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  if (stream.bad()) {
    refuse(file, {errno, std::generic_category()});
  }
  return bytes;
}

}  // namespace quobrak::host
