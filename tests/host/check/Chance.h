#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::host::testing {

/// Choices that are the same for the same seed, with any library.
class Chance {
 public:
  explicit Chance(std::uint32_t seed) : engine_(seed) {}

  /// From 0 to below `bound`.
  std::size_t below(std::size_t bound) { return engine_() % bound; }

  bool inHundred(std::size_t times) { return below(100) < times; }

  template <class Choices>
  const auto& of(const Choices& choices) {
    return choices[below(std::size(choices))];
  }

 private:
  std::mt19937 engine_;
};

}  // namespace quobrak::host::testing
