#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace quobrak::host {

/// Why an operation of the system failed, from its number in `errno`: "No space left on device".
std::string reasonOf(int error);

/// Writes a new file; its folder must exist. Throws `EnvironmentError`, also where there is such a file already.
void writeNewFile(const std::filesystem::path& file, std::string_view bytes);

/// Why no file of that many bytes could be written into the folder; empty where one could, which is then removed again.
std::string writingFault(const std::filesystem::path& folder, std::size_t size);

/// Makes a folder and those above it that are missing. Throws `EnvironmentError`.
void makeFolder(const std::filesystem::path& folder);

}  // namespace quobrak::host
