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
  // The stream turns what its buffer throws into a state; iterators of the buffer would let it out.
  constexpr std::size_t BLOCK = 65536;
  std::array<char, BLOCK> block{};
  std::string bytes;
  while (stream) {
    stream.read(block.data(), block.size());
    bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
  }
  if (stream.bad()) {
    refuse(file, {errno, std::generic_category()});
  }
  return bytes;
}

}  // namespace quobrak::host
