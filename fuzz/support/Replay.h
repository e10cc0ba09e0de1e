#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <span>

namespace quobrak::fuzz {

/// What a fuzz target is, to whoever gives it inputs.
using Target = int (*)(const std::uint8_t* data, std::size_t size);

/// Gives the target the content of each file, and of all files of each folder in the order of their names. The name of
/// a file is written to `progress` before its turn, so that the last one is the one that did not end well. The number
/// of files; throws `std::runtime_error` where a path cannot be read.
std::size_t replay(Target target, std::span<const std::filesystem::path> paths, std::ostream& progress);

}  // namespace quobrak::fuzz
