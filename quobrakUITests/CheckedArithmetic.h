#pragma once

#include <concepts>
#include <string_view>

#include "platform/foundation/FatalError.h"

namespace quobrak {

/// Integer arithmetic whose overflow stops the process: a wrong figure must never look like a measured one.
template <std::signed_integral Integer>
Integer checkedAdd(Integer left, Integer right, std::string_view what) {
  Integer sum{};
  if (__builtin_add_overflow(left, right, &sum)) {
    fatalError(what);
  }
  return sum;
}

template <std::signed_integral Integer>
Integer checkedSubtract(Integer left, Integer right, std::string_view what) {
  Integer difference{};
  if (__builtin_sub_overflow(left, right, &difference)) {
    fatalError(what);
  }
  return difference;
}

}  // namespace quobrak
