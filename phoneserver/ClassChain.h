#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/foundation/NSPredicate.h"
#include "platform/uiautomation/ElementType.h"

namespace quobrak::phoneserver {

/// A condition in a class chain.
struct ChainPredicate {
  NSPredicate predicate;
  /// Whether it asks for some descendant of the element in place of the element itself.
  bool isOfADescendant;
};

/// One step of a class chain.
struct ChainSegment {
  /// Whether it goes to all descendants, or to the children alone.
  bool takesDescendants = false;
  ElementType type = ElementType::any;
  std::vector<ChainPredicate> predicates{};
  /// From 1, or from the end as -1, -2 and so on. Never 0.
  std::optional<int> position{};
};

/// Reads a class chain: segments, each behind `/` (children) or `**/` (descendants) or, in the first place, behind
/// nothing (children). A segment is a type (`XCUIElementTypeButton`, or `*` for any), predicates in [`...`] or, asking
/// for a descendant, in [$...$], and at the end a position in [...]. The mark that encloses a predicate is doubled
/// inside it. Raises `WireError`: "invalid selector" for the chain, "unknown error" for a predicate in it.
std::vector<ChainSegment> readClassChain(std::string_view chain);

/// The predicate of that format. Raises `WireError` "unknown error".
NSPredicate readPredicate(std::string_view format);

}  // namespace quobrak::phoneserver
