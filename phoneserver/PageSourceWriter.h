#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "phoneserver/SearchScope.h"

namespace quobrak::phoneserver {

/// The elements of the scope, its root among them, as XML, which `simulator::readPageSource` reads back. Attributes
/// whose names are in `excluded` are left out.
std::string pageSource(const SearchScope& scope, const std::vector<std::string>& excluded);

/// The elements that an XPath expression selects in that XML. Raises `WireError` "invalid selector".
FoundElements elementsOfXPath(const SearchScope& scope, const std::string& expression);

}  // namespace quobrak::phoneserver
