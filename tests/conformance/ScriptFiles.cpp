#include "tests/conformance/ScriptFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace quobrak::conformance {

namespace {

namespace fs = std::filesystem;

constexpr const char* ENDING = ".txt";

}  // namespace

const char* const SCRIPTS_FOLDER = QUOBRAK_SOURCE_FOLDER "/tests/scripts";

std::vector<std::string> scriptNamesIn(const std::string& folder) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file() && entry.path().extension() == ENDING) {
      names.push_back(entry.path().lexically_relative(folder).replace_extension().generic_string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

ScriptFile readScriptFileIn(const std::string& folder, const std::string& name) {
  std::ifstream file(fs::path(folder) / (name + ENDING), std::ios::binary);
  return readScriptFile(name, {std::istreambuf_iterator<char>(file), {}});
}

}  // namespace quobrak::conformance
