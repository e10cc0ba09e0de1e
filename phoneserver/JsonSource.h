#pragma once

#include <string>
#include <vector>

#include "phoneserver/SearchScope.h"
#include "platform/foundation/JSON.h"

namespace quobrak::phoneserver {

/// The elements of the scope, its root among them, as a tree of JSON objects. Attributes whose names are in `excluded`
/// are left out.
JSONValue jsonSource(const SearchScope& scope, const std::vector<std::string>& excluded);

}  // namespace quobrak::phoneserver
