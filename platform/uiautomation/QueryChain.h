#pragma once

#include <string>
#include <vector>

#include "platform/uiautomation/XCUIElement.h"

namespace quobrak {

inline constexpr const char* QUERY_CHAIN_TITLE = "Query chain:\n";

/// The chain of the element's query in the platform's words: the root, the steps and the pick, each a line of its own
/// that is indented by two more blanks than the one before.
std::vector<std::string> queryChainSteps(const XCUIElement& element);

/// What is left of a description where the element is not there: the chain alone, with its title.
std::string queryChain(const XCUIElement& element);

}  // namespace quobrak
