#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/PlaceSet.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::simulator {

/// The values that a sequence of elements has for one attribute, texts or missing, one behind the other in one buffer
/// that a search reads once.
class TextColumn {
 public:
  /// Adds the value of the next element.
  void append(std::string_view text);
  void append(const FoldedText& text);
  void appendMissing();

  /// The number of values.
  std::size_t size() const { return ends_.size(); }

  /// Where the value is missing, an empty text.
  std::string_view text(std::size_t place) const { return bytesBetween(beginOf(place), ends_[place]); }
  bool isMissing(std::size_t place) const { return isMissing_[place]; }

  /// The places of the texts that contain the needle, of folded ones between whole characters. An empty needle is
  /// contained nowhere.
  PlaceSet containing(std::string_view needle) const;

  PlaceSet equalTo(std::string_view text) const;

 private:
  std::size_t beginOf(std::size_t place) const { return place == 0 ? 0 : ends_[place - 1]; }
  std::string_view bytesBetween(std::size_t begin, std::size_t end) const {
    return std::string_view(bytes_).substr(begin, end - begin);
  }
  /// The places of the texts that hold the needle, which is not empty, where `isMatch` says so of a place and of where
  /// the needle begins and ends.
  template <class Condition>
  PlaceSet placesOf(std::string_view needle, Condition isMatch) const;
  PlaceSet emptyTexts() const;
  bool isBetweenCharacters(std::size_t position) const;
  std::size_t rarestOf(std::string_view needle) const;
  std::size_t& countOf(char byte) { return counts_[static_cast<unsigned char>(byte)]; }
  std::size_t countOf(char byte) const { return counts_[static_cast<unsigned char>(byte)]; }

  std::string bytes_;
  /// How often each byte occurs.
  std::array<std::size_t, 256> counts_{};
  /// Where each value ends.
  std::vector<std::size_t> ends_;
  std::vector<bool> isMissing_;
  /// Ascending positions that lie inside what one character folded to.
  std::vector<std::size_t> insideOneCharacter_;
};

}  // namespace quobrak::simulator
