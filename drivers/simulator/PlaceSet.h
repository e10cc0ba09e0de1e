#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quobrak::simulator {

/// A set of places in a sequence. Sets of one sequence are joined and narrowed 64 places at a time.
class PlaceSet {
 public:
  /// No place, of those from 0 up to `length`.
  explicit PlaceSet(std::size_t length) : words_((length + BITS - 1) / BITS) {}

  void insert(std::size_t place) { words_[place / BITS] |= bitOf(place); }
  /// The places from `begin` up to `end`.
  void insert(std::size_t begin, std::size_t end);

  bool contains(std::size_t place) const { return (words_[place / BITS] & bitOf(place)) != 0; }
  bool isEmpty() const;

  // The other set is of a sequence of the same length.
  PlaceSet& operator|=(const PlaceSet& other);
  PlaceSet& operator&=(const PlaceSet& other);
  /// Without the places of the other set.
  PlaceSet& operator-=(const PlaceSet& other);

  /// Calls `visit` with each place, in ascending order.
  template <class Visit>
  void forEach(Visit visit) const {
    for (std::size_t index = 0; index < words_.size(); ++index) {
      for (std::uint64_t rest = words_[index]; rest != 0; rest &= rest - 1) {
        visit(index * BITS + static_cast<std::size_t>(std::countr_zero(rest)));
      }
    }
  }

  bool operator==(const PlaceSet&) const = default;

 private:
  static constexpr std::size_t BITS = 64;
  static std::uint64_t bitOf(std::size_t place) { return std::uint64_t{1} << (place % BITS); }

  std::vector<std::uint64_t> words_;
};

}  // namespace quobrak::simulator
