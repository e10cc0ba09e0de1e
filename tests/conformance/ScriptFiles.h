#pragma once

#include <string>
#include <vector>

#include "tests/conformance/ScriptFile.h"

namespace quobrak::conformance {

/// Where the scripts are that say what they do, and the phones that they run on.
extern const char* const SCRIPTS_FOLDER;

/// The paths of the scripts below a folder, from there and without their ending, in ascending order.
std::vector<std::string> scriptNamesIn(const std::string& folder);

/// Reads one of them. Throws `ScriptFileError`.
ScriptFile readScriptFileIn(const std::string& folder, const std::string& name);

}  // namespace quobrak::conformance
