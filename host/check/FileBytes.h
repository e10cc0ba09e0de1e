#pragma once

#include <filesystem>
#include <string>

namespace quobrak::host {

/// All bytes of a file. Throws `EnvironmentError` where it cannot be read, with the system's reason.
std::string fileBytes(const std::filesystem::path& file);

}  // namespace quobrak::host
