#pragma once

#include <string>

#include "platform/uiautomation/XCUIElementQuery.h"

namespace quobrak::webdriver {

/// The steps of a query as one class chain, which a server evaluates from the query's root on. Throws `UnaskableQuery`.
std::string classChain(const XCUIElementQuery& query);

/// The chain that finds the picked element alone. `chain` must end in no pick.
std::string pickedFrom(const std::string& chain, const ElementPick& pick);

/// The number of the picked element among those that a query finds, from 0.
std::size_t indexOf(const ElementPick& pick);

}  // namespace quobrak::webdriver
