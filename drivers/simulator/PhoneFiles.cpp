#include "drivers/simulator/PhoneFiles.h"

#include <array>
#include <cstddef>
#include <fstream>
#include <string_view>

#include "drivers/simulator/BuiltinFiles.h"
#include "platform/foundation/Paths.h"

namespace quobrak::simulator {

std::optional<std::string> BuiltinPhoneFiles::read(const std::string& path) const {
  const std::optional<std::string_view> content = builtinPhoneFile(path);
  return content ? std::optional<std::string>(*content) : std::nullopt;
}

std::string BuiltinPhoneFiles::nameOf(const std::string& path) const {
  return "the built-in phone's " + path;
}

std::optional<std::string> FolderPhoneFiles::read(const std::string& path) const {
  std::ifstream file(nameOf(path), std::ios::binary);
  std::string content;
  // Read through the stream, which notes a failure, such as that of a folder of this name, in place of raising it.
  for (std::array<char, 65536> part{}; file.read(part.data(), part.size()) || file.gcount() > 0;) {
    content.append(part.data(), static_cast<std::size_t>(file.gcount()));
  }
  return file.is_open() && !file.bad() ? std::optional(std::move(content)) : std::nullopt;
}

std::string FolderPhoneFiles::nameOf(const std::string& path) const {
  return appendingPathComponent(folder_, path);
}

}  // namespace quobrak::simulator
