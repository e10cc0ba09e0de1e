#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/run/RunRecord.h"

namespace quobrak::host {

/// A script as it is put into the Documents directory of each iteration. It was read once, so that all iterations run
/// the same text.
struct CollectedScript {
  RunScript script;
  /// The name of its file, from which the test process makes that of the folder of results.
  std::string fileName;
  std::string bytes;
};

struct ScriptCollection {
  std::vector<CollectedScript> scripts;
  /// What a person should know: which scripts had to be given another name.
  std::vector<std::string> notices;
};

/// The scripts that `paths` name, as `readScripts` finds them. `suite` is the suite of all; without it that of a script
/// is the name of the folder in which it lies. Throws what `readScripts` throws, and `UseError` for a suite that cannot
/// be the name of a folder.
ScriptCollection collectScripts(const std::vector<std::string>& paths, const std::optional<std::string>& suite);

/// Where the script with that index lies, in the Documents directory: "scripts/001/order.txt".
std::filesystem::path placeOfScript(std::size_t index, std::size_t count, std::string_view fileName);

/// The same place as the test process has to be told of it.
std::string tellablePlaceOfScript(std::size_t index, std::size_t count, std::string_view fileName);

/// A number with zeros in front, as wide as the greatest of its kind, but three digits at least.
std::string numbered(std::size_t number, std::size_t greatest);

}  // namespace quobrak::host
