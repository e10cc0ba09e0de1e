#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace quobrak {

/// An owned run of bytes.
using Data = std::vector<std::byte>;

/// A run of bytes that someone else owns.
using DataView = std::span<const std::byte>;

/// The bytes of a text, which in this program are always UTF-8.
inline DataView bytesOf(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

/// The bytes as a text, taken as they stand.
inline std::string_view textOf(DataView bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace quobrak
