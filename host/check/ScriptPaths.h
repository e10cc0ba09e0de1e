#pragma once

#include <string>
#include <vector>

#include "host/check/Checker.h"

namespace quobrak::host {

/// The path that stands for standard input.
inline constexpr const char* STANDARD_INPUT = "-";

/// The empty file that marks a folder of results: what a run leaves there in files ".txt" are no scripts.
inline constexpr const char* RESULTS_MARKER = ".quobrak-results";

/// Scripts, as somebody named them.
struct NamedScripts {
  std::vector<ScriptSource> scripts;
  /// Whether they are in the order of a run: every one was named by itself.
  bool isOrderKnown = true;
};

/// Reads what the paths name: a file; in a folder all files below it whose names end in ".txt", by path in ascending
/// order, but none that is hidden, in a hidden folder or in a folder of results; or standard input. Throws `UseError`
/// where nothing has that path, no script is in a folder, a folder is one of results, or standard input is named twice;
/// `EnvironmentError` where something cannot be read.
NamedScripts readScripts(const std::vector<std::string>& paths);

}  // namespace quobrak::host
