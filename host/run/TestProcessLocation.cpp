#include "host/run/TestProcessLocation.h"

#include <unistd.h>

#include <algorithm>
#include <string_view>
#include <system_error>
#include <vector>

#include "host/Subcommand.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace fs = std::filesystem;

namespace {

constexpr const char* NAME = "quobrakUITests";

bool canBeStarted(const fs::path& file) {
  std::error_code unknown;
  return fs::is_regular_file(file, unknown) && ::access(file.c_str(), X_OK) == 0;
}

fs::path named(const fs::path& file, std::string_view by) {
  if (!canBeStarted(file)) {
    throw EnvironmentError(std::string(by) + " is " + shown(file.native()) +
                           ", but there is no file that could be started: it must be the test process, " + NAME);
  }
  return fs::absolute(file);
}

std::vector<fs::path> foldersOf(std::string_view path) {
  std::vector<fs::path> folders;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find(':'), path.size());
    // An empty entry is the working directory.
    folders.emplace_back(end == 0 ? "." : path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return folders;
}

}  // namespace

fs::path locateTestProcess(const std::optional<fs::path>& option, const EnvironmentVariables& own,
                           const fs::path& ownFolder) {
  if (option) {
    return named(*option, "--test-process");
  }
  if (const auto variable = own.find("QUOBRAK_TEST_PROCESS"); variable != own.end()) {
    return named(variable->second, "QUOBRAK_TEST_PROCESS");
  }
  std::vector<fs::path> folders{ownFolder};
  if (const auto path = own.find("PATH"); path != own.end()) {
    const std::vector<fs::path> others = foldersOf(path->second);
    folders.insert(folders.end(), others.begin(), others.end());
  }
  const auto folder = std::find_if(folders.begin(), folders.end(),
                                   [](const fs::path& candidate) { return canBeStarted(candidate / NAME); });
  if (folder == folders.end()) {
    throw EnvironmentError(std::string("the test process ") + NAME + " is neither in " + shown(ownFolder.native()) +
                           " nor in a folder of PATH. Build it there, or name it with --test-process");
  }
  return fs::absolute(*folder / NAME);
}

fs::path folderOfThisProgram() {
  std::error_code unknown;
  return fs::read_symlink("/proc/self/exe", unknown).parent_path();
}

}  // namespace quobrak::host
