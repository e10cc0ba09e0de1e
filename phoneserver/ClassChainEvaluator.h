#pragma once

#include <span>

#include "phoneserver/ClassChain.h"
#include "phoneserver/SearchScope.h"

namespace quobrak::phoneserver {

/// The elements that the last segment of the chain keeps; never the root. Raises `WireError`.
FoundElements elementsOfChain(const SearchScope& scope, std::span<const ChainSegment> chain);

}  // namespace quobrak::phoneserver
