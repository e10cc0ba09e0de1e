#pragma once

#include <cstddef>
#include <filesystem>
#include <istream>
#include <string>

namespace quobrak::host {

/// Many times as many bytes as any script has. What has more, a device that never ends for one, is not read.
inline constexpr std::size_t MOST_BYTES = 256'000'000;

/// All bytes that the stream has left; its state tells whether reading failed. Throws `EnvironmentError`, which calls
/// the stream by the name, where there are more than `MOST_BYTES`.
std::string bytesOf(std::istream& stream, const std::string& name);

/// All bytes of a file. Throws `EnvironmentError` where it cannot be read, with the system's reason, or has more than
/// `MOST_BYTES`.
std::string fileBytes(const std::filesystem::path& file);

}  // namespace quobrak::host
