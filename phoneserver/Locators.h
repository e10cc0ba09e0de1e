#pragma once

#include <string>

#include "phoneserver/SearchScope.h"

namespace quobrak::phoneserver {

/// The elements that a client describes; `strategy` is the kind of description by its name on the wire ("class chain").
/// Raises `WireError`: "invalid argument" for a strategy that there is none of, "invalid selector" or "unknown error"
/// for a description that cannot be used.
FoundElements elementsFound(const SearchScope& scope, const std::string& strategy, const std::string& description);

}  // namespace quobrak::phoneserver
