#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quobrak {

/// Goes through a script line by line. Every newline character ends a line, so that a carriage return and a line feed
/// leave an empty line between them; what follows the last newline is a line too, even when it is empty.
class ScriptLines {
 public:
  /// The script must outlive it.
  explicit ScriptLines(std::string_view script) : rest_(script) {}

  /// The next line as written, without its newline; none after the last one.
  std::optional<std::string_view> next();

 private:
  std::string_view rest_;
  bool isAtEnd_ = false;
};

/// Whether a line is passed over: an empty one, or a comment. The line must have no blanks at its ends.
inline bool isSkipped(std::string_view line) {
  return line.empty() || line.starts_with('#');
}

}  // namespace quobrak
