#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quobrak::host {

/// Why an operation of the system failed, from its number in `errno`: "No space left on device".
std::string reasonOf(int error);

/// Writes a new file; its folder must exist. Throws `EnvironmentError`, also where there is such a file already.
void writeNewFile(const std::filesystem::path& file, std::string_view bytes);

/// Makes a folder and those above it that are missing. Throws `EnvironmentError`.
void makeFolder(const std::filesystem::path& folder);

}  // namespace quobrak::host
