#include "drivers/simulator/PhoneFiles.h"

#include <fstream>
#include <iterator>
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
  std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  return file.is_open() && !file.bad() ? std::optional(std::move(content)) : std::nullopt;
}

std::string FolderPhoneFiles::nameOf(const std::string& path) const {
  return appendingPathComponent(folder_, path);
}

}  // namespace quobrak::simulator
