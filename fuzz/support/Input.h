#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quobrak::fuzz {

/// The bytes of one input, taken from the front. Where they have come to an end, what is taken is empty or 0, so that
/// every input is one.
class Input {
 public:
  /// The bytes must outlive it, and the texts that it gives.
  Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}
  explicit Input(std::string_view text) : rest_(text) {}

  bool isAtEnd() const { return rest_.empty(); }

  /// The bytes up to the next line feed, which is passed over.
  std::string_view line();

  /// The same as text: what is no UTF-8 in it is replaced.
  std::string textLine();

  std::uint8_t byte();

  /// All that is left.
  std::string_view rest();

  /// The same as text.
  std::string textRest();

 private:
  std::string_view rest_;
};

}  // namespace quobrak::fuzz
