#include "drivers/simulator/TextColumn.h"

#include <algorithm>
#include <cstdint>

namespace quobrak::simulator {

void TextColumn::append(std::string_view text) {
  bytes_ += text;
  for (const char byte : text) {
    ++countOf(byte);
  }
  ends_.push_back(bytes_.size());
  isMissing_.push_back(false);
}

void TextColumn::append(const FoldedText& text) {
  for (const std::uint32_t position : text.insideOneCharacter) {
    insideOneCharacter_.push_back(bytes_.size() + position);
  }
  append(text.text);
}

void TextColumn::appendMissing() {
  ends_.push_back(bytes_.size());
  isMissing_.push_back(true);
}

bool TextColumn::isBetweenCharacters(std::size_t position) const {
  return !std::binary_search(insideOneCharacter_.begin(), insideOneCharacter_.end(), position);
}

/// The byte of the needle that is rarest in the column, by its position in the needle.
std::size_t TextColumn::rarestOf(std::string_view needle) const {
  const auto rarest = std::min_element(needle.begin(), needle.end(),
                                       [this](char one, char other) { return countOf(one) < countOf(other); });
  return static_cast<std::size_t>(rarest - needle.begin());
}

template <class Condition>
PlaceSet TextColumn::placesOf(std::string_view needle, Condition isMatch) const {
  PlaceSet places(size());
  // The library looks for one byte far faster than for a text, so it looks for the one that occurs least.
  const std::size_t rarest = rarestOf(needle);
  auto textEnd = ends_.begin();
  std::size_t begin = 0;
  while (begin + needle.size() <= bytes_.size()) {
    const std::size_t byte = bytes_.find(needle[rarest], begin + rarest);
    if (byte == bytes_.npos) {
      break;
    }
    begin = byte - rarest;
    const std::size_t end = begin + needle.size();
    if (bytes_[begin] != needle.front() || bytesBetween(begin, end) != needle) {
      ++begin;
      continue;
    }
    textEnd = std::upper_bound(textEnd, ends_.end(), begin);
    const auto place = static_cast<std::size_t>(textEnd - ends_.begin());
    const bool isFound = end <= *textEnd && isMatch(place, begin, end);
    if (isFound) {
      places.insert(place);
    }
    begin = isFound ? *textEnd : begin + 1;
  }
  return places;
}

PlaceSet TextColumn::containing(std::string_view needle) const {
  if (needle.empty()) {
    return PlaceSet(size());
  }
  return placesOf(needle, [this](std::size_t /*place*/, std::size_t begin, std::size_t end) {
    return isBetweenCharacters(begin) && isBetweenCharacters(end);
  });
}

PlaceSet TextColumn::equalTo(std::string_view text) const {
  if (text.empty()) {
    return emptyTexts();
  }
  return placesOf(text, [this](std::size_t place, std::size_t begin, std::size_t end) {
    return begin == beginOf(place) && end == ends_[place];
  });
}

PlaceSet TextColumn::emptyTexts() const {
  PlaceSet places(size());
  for (std::size_t place = 0; place < size(); ++place) {
    if (beginOf(place) == ends_[place] && !isMissing_[place]) {
      places.insert(place);
    }
  }
  return places;
}

}  // namespace quobrak::simulator
