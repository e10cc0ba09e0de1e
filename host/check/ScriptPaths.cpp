#include "host/check/ScriptPaths.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>

#include "host/Subcommand.h"
#include "host/check/FileBytes.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

namespace {

namespace fs = std::filesystem;

bool isHidden(const fs::path& path) {
  return path.filename().string().starts_with('.');
}

bool hasResults(const fs::path& folder) {
  std::error_code error;
  return fs::exists(folder / RESULTS_MARKER, error);
}

/// The scripts below a folder.
std::vector<fs::path> scriptsBelow(const fs::path& folder) {
  if (hasResults(folder)) {
    throw UseError("the folder " + shown(folder.string()) +
                   " holds the results of a run: what is in it is not taken for scripts, unless it is named by itself");
  }
  std::vector<fs::path> found;
  // What fails while it goes on is named by no error.
  fs::path at = folder;
  try {
    for (fs::recursive_directory_iterator entry(folder), end; entry != end; ++entry) {
      at = entry->path();
      if (isHidden(entry->path()) || hasResults(entry->path())) {
        entry.disable_recursion_pending();
      } else if (entry->path().extension() == ".txt" && entry->is_regular_file()) {
        found.push_back(entry->path());
      }
    }
  } catch (const fs::filesystem_error& error) {
    throw EnvironmentError(shown(at.string()) + " cannot be read: " + error.code().message());
  }
  std::sort(found.begin(), found.end());
  if (found.empty()) {
    throw UseError("the folder " + shown(folder.string()) + " has no script: their names end in .txt");
  }
  return found;
}

ScriptSource fromFile(const fs::path& file) {
  return {.name = file.string(), .bytes = fileBytes(file)};
}

ScriptSource fromStandardInput() {
  ScriptSource source{.name = STANDARD_INPUT, .bytes = bytesOf(std::cin, "standard input")};
  // std::cin reads by it, and tells an error as if the end had come.
  if (std::ferror(stdin) != 0) {
    throw EnvironmentError("standard input cannot be read");
  }
  return source;
}

}  // namespace

NamedScripts readScripts(const std::vector<std::string>& paths) {
  if (std::count(paths.begin(), paths.end(), STANDARD_INPUT) > 1) {
    throw UseError("standard input can be read once only");
  }
  NamedScripts named;
  for (const std::string& path : paths) {
    std::error_code error;
    const fs::file_type type = fs::status(path, error).type();
    if (path == STANDARD_INPUT) {
      named.scripts.push_back(fromStandardInput());
    } else if (type == fs::file_type::directory) {
      named.isOrderKnown = false;
      for (const fs::path& file : scriptsBelow(path)) {
        named.scripts.push_back(fromFile(file));
      }
    } else if (type == fs::file_type::not_found) {
      throw UseError("there is no file or folder " + shown(path));
    } else {
      named.scripts.push_back(fromFile(path));
    }
  }
  return named;
}

}  // namespace quobrak::host
