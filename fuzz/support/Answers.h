#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace quobrak::fuzz {

/// What stands in for a world that answers as it likes: bytes, again from the first where they have come to an end.
class Answers {
 public:
  /// The answer of a part of the world that fails.
  static constexpr std::uint8_t FAILURE = '!';

  explicit Answers(std::string bytes) : bytes_(std::move(bytes)) {}

  /// 0 where there are none.
  std::uint8_t next() {
    return bytes_.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(bytes_[position_++ % bytes_.size()]);
  }

 private:
  std::string bytes_;
  std::size_t position_ = 0;
};

}  // namespace quobrak::fuzz
