#pragma once

#include <filesystem>
#include <optional>

#include "host/run/ChildEnvironment.h"

namespace quobrak::host {

/// Where the test process is, by an absolute path: what the option names; else what QUOBRAK_TEST_PROCESS in `own`
/// names; else `quobrakUITests` in `ownFolder`, where this program is; else in a folder of PATH. Throws
/// `EnvironmentError` where there is none that can be started, saying where it was looked for.
std::filesystem::path locateTestProcess(const std::optional<std::filesystem::path>& option,
                                        const EnvironmentVariables& own, const std::filesystem::path& ownFolder);

/// The folder of this program's own executable; empty where the system does not tell.
std::filesystem::path folderOfThisProgram();

}  // namespace quobrak::host
