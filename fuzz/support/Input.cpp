#include "fuzz/support/Input.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/Unicode.h"

namespace quobrak::fuzz {

std::string_view Input::line() {
  const std::string_view line = rest_.substr(0, rest_.find('\n'));
  rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
  return line;
}

std::string Input::textLine() {
  return repairedUTF8(line());
}

std::uint8_t Input::byte() {
  if (rest_.empty()) {
    return 0;
  }
  const auto byte = static_cast<std::uint8_t>(rest_.front());
  rest_.remove_prefix(1);
  return byte;
}

std::string_view Input::rest() {
  return std::exchange(rest_, {});
}

std::string Input::textRest() {
  return repairedUTF8(rest());
}

}  // namespace quobrak::fuzz
