#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/TextPlace.h"

namespace quobrak {

/// Where the parts of a JSON text stand in it, by their key paths as a `DecodingError` names them.
class JSONPlaces {
 public:
  /// The text must outlive this object. Of one that `JSONDecoder` does not read, what stands before its fault is known.
  explicit JSONPlaces(std::string_view text);

  /// Where the member's key or the array's element begins. For what is not there: where that begins which it would be
  /// in.
  TextPlace of(std::string_view keyPath) const;

  /// A member of an object that has a member of this name already. The decoder takes the last of them, and its places
  /// are the known ones.
  struct Repetition {
    std::string keyPath;
    TextPlace place;
  };
  const std::vector<Repetition>& repetitions() const { return repetitions_; }

 private:
  class Reader;

  std::string_view text_;
  std::map<std::string, std::size_t, std::less<>> offsets_;
  std::vector<Repetition> repetitions_;
};

}  // namespace quobrak
