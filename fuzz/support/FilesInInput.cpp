#include "fuzz/support/FilesInInput.h"

#include <string_view>

namespace quobrak::fuzz {

std::map<std::string, std::string> filesIn(Input input) {
  std::map<std::string, std::string> files;
  std::string* file = nullptr;
  while (!input.isAtEnd()) {
    const std::string_view line = input.line();
    if (line.starts_with('@')) {
      file = &files[std::string(line.substr(1))];
    } else if (file != nullptr) {
      file->append(line).append("\n");
    }
  }
  return files;
}

}  // namespace quobrak::fuzz
