#include "fuzz/support/Replay.h"

#include <algorithm>
#include <fstream>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace quobrak::fuzz {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesOf(const fs::path& path) {
  if (!fs::is_directory(path)) {
    return {path};
  }
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path)) {
    if (entry.is_regular_file()) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// In a room of just its size, so that a sanitizer sees who reads beyond its end.
std::vector<char> contentOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::vector<char> content(stream ? fs::file_size(file) : 0);
  if (!stream.read(content.data(), static_cast<std::streamsize>(content.size()))) {
    throw std::runtime_error(file.string() + " cannot be read");
  }
  return content;
}

}  // namespace

std::size_t replay(Target target, std::span<const fs::path> paths, std::ostream& progress) {
  std::size_t count = 0;
  for (const fs::path& path : paths) {
    for (const fs::path& file : filesOf(path)) {
      const std::vector<char> content = contentOf(file);
      progress << file.string() << std::endl;
      target(reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
      ++count;
    }
  }
  return count;
}

}  // namespace quobrak::fuzz
