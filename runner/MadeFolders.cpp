#include "runner/MadeFolders.h"

namespace quobrak {

namespace fs = std::filesystem;

MadeFolders::MadeFolders(const fs::path& folder) {
  std::error_code ignored;
  for (fs::path missing = fs::absolute(folder, ignored); !fs::exists(missing, ignored) && missing.has_relative_path();
       missing = missing.parent_path()) {
    made_.push_back(missing);
  }
  fs::create_directories(folder, failure_);
}

MadeFolders::~MadeFolders() {
  std::error_code ignored;
  for (const fs::path& folder : made_) {
    fs::remove(folder, ignored);
  }
}

}  // namespace quobrak
