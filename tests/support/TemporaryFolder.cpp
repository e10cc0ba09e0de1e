#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace quobrak::testing {

TemporaryFolder::TemporaryFolder() : TemporaryFolder(::testing::TempDir()) {}

TemporaryFolder::TemporaryFolder(const std::filesystem::path& parent) {
  std::string name = (parent / "quobrak-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) {
    ADD_FAILURE() << "no temporary folder could be made at " << name;
  }
  path_ = std::filesystem::canonical(name);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TemporaryFolder::write(const std::filesystem::path& file, std::string_view content) const {
  std::filesystem::create_directories((path_ / file).parent_path());
  std::ofstream(path_ / file, std::ios::binary) << content;
}

std::string TemporaryFolder::read(const std::filesystem::path& file) const {
  std::ifstream stream(path_ / file, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << "there is no file " << path_ / file;
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<std::string> TemporaryFolder::files() const {
  std::vector<std::string> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(path_)) {
    if (!entry.is_directory()) {
      found.push_back(entry.path().lexically_relative(path_).string());
    }
  }
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace quobrak::testing
