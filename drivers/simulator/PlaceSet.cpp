#include "drivers/simulator/PlaceSet.h"

#include <algorithm>
#include <functional>

namespace quobrak::simulator {

void PlaceSet::insert(std::size_t begin, std::size_t end) {
  std::size_t place = begin;
  for (; place < end && place % BITS != 0; ++place) {
    insert(place);
  }
  for (; end - place >= BITS && place < end; place += BITS) {
    words_[place / BITS] = ~std::uint64_t{0};
  }
  for (; place < end; ++place) {
    insert(place);
  }
}

bool PlaceSet::isEmpty() const {
  return std::all_of(words_.begin(), words_.end(), [](std::uint64_t word) { return word == 0; });
}

PlaceSet& PlaceSet::operator|=(const PlaceSet& other) {
  std::transform(words_.begin(), words_.end(), other.words_.begin(), words_.begin(), std::bit_or<>());
  return *this;
}

PlaceSet& PlaceSet::operator&=(const PlaceSet& other) {
  std::transform(words_.begin(), words_.end(), other.words_.begin(), words_.begin(), std::bit_and<>());
  return *this;
}

PlaceSet& PlaceSet::operator-=(const PlaceSet& other) {
  std::transform(words_.begin(), words_.end(), other.words_.begin(), words_.begin(),
                 [](std::uint64_t mine, std::uint64_t theirs) { return mine & ~theirs; });
  return *this;
}

}  // namespace quobrak::simulator
