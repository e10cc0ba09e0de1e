#pragma once

#include <optional>
#include <string>

namespace quobrak {

/// The running process, as far as it is asked about.
class ProcessInfo {
 public:
  ProcessInfo() = delete;

  /// The value of an environment variable, read afresh on every call; none where the variable is not set, and the
  /// empty text where it is set to nothing. Bytes that are not UTF-8 come as replacement characters (U+FFFD).
  static std::optional<std::string> environmentVariable(const std::string& name);
};

}  // namespace quobrak
