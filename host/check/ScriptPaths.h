#pragma once

#include <string>
#include <vector>

#include "host/check/Checker.h"

namespace quobrak::host {

/// The path that stands for standard input.
inline constexpr const char* STANDARD_INPUT = "-";

/// Scripts, as somebody named them.
struct NamedScripts {
  std::vector<ScriptSource> scripts;
  /// Whether they are in the order of a run: every one was named by itself.
  bool isOrderKnown = true;
};

/// Reads what the paths name: a file; in a folder all files below it whose names end in ".txt", by path in ascending
/// order, but none that is hidden or in a hidden folder; or standard input. Throws `UseError` where nothing has that
/// path, or no script is in a folder; `EnvironmentError` where something cannot be read.
NamedScripts readScripts(const std::vector<std::string>& paths);

}  // namespace quobrak::host
