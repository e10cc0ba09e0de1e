#include "host/check/FileBytes.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <fstream>
#include <system_error>

#include "host/Subcommand.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace {

std::string nameOf(const std::filesystem::path& file) {
  return "the file " + shown(file.string());
}

[[noreturn]] void refuse(const std::filesystem::path& file, const std::error_code& reason) {
  throw EnvironmentError(nameOf(file) + " cannot be read: " + reason.message());
}

}  // namespace

std::string bytesOf(std::istream& stream, const std::string& name) {
  constexpr std::size_t BLOCK = 65536;
  constexpr std::size_t BYTES_OF_MEGABYTE = 1'000'000;
  std::array<char, BLOCK> block{};
  std::string bytes;
  // The stream turns what its buffer throws into a state; iterators of the buffer would let it out.
  while (stream) {
    stream.read(block.data(), block.size());
    bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    if (bytes.size() > MOST_BYTES) {
      throw EnvironmentError(name + " is too large: it has more than " +
                             std::to_string(MOST_BYTES / BYTES_OF_MEGABYTE) + " MB, the most that is read");
    }
  }
  return bytes;
}

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
  std::string bytes = bytesOf(stream, nameOf(file));
  if (stream.bad()) {
    refuse(file, {errno, std::generic_category()});
  }
  return bytes;
}

}  // namespace quobrak::host
