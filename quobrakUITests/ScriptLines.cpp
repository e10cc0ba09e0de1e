#include "quobrakUITests/ScriptLines.h"

#include <array>

#include "platform/foundation/Unicode.h"

namespace quobrak {

namespace {

/// The bytes with which the UTF-8 form of a newline character begins; only there is it worth asking.
constexpr std::array<bool, 256> MAY_BEGIN_NEWLINE = [] {
  std::array<bool, 256> marks{};
  for (const std::size_t byte : {0x0AU, 0x0BU, 0x0CU, 0x0DU, 0xC2U, 0xE2U}) {
    marks[byte] = true;
  }
  return marks;
}();

}  // namespace

std::optional<std::string_view> ScriptLines::next() {
  if (isAtEnd_) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < rest_.size(); ++i) {
    if (!MAY_BEGIN_NEWLINE[static_cast<unsigned char>(rest_[i])]) {
      continue;
    }
    if (const std::size_t length = newlineLength(rest_.substr(i)); length > 0) {
      const std::string_view line = rest_.substr(0, i);
      rest_.remove_prefix(i + length);
      return line;
    }
  }
  isAtEnd_ = true;
  return rest_;
}

}  // namespace quobrak
