#pragma once

#include <string_view>

#include "platform/foundation/NSPredicate.h"

/// What commands ask elements for.
namespace quobrak {

/// A selector, and how it is compared with a text of an element.
struct TextSelector {
  std::string_view text;
  /// Whether it is a regular expression for the whole text, rather than a part of it in any case.
  bool isExact;
};

/// Holds for the elements in that state whose label, identifier or placeholder has the text.
NSPredicate anyTextPredicate(const TextSelector& selector, bool isEnabled);

/// Holds for the elements whose attribute has the text, in either state.
NSPredicate attributePredicate(std::string_view attribute, const TextSelector& selector);

/// Holds for the elements in that state.
NSPredicate statePredicate(bool isEnabled);

}  // namespace quobrak
