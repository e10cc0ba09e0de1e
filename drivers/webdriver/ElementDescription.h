#pragma once

#include <string>
#include <vector>

#include "drivers/webdriver/FoundElement.h"

namespace quobrak::webdriver {

/// The application in the platform's own words. `subtree` is the server's description of all below it.
std::string description(const FoundElement& application, const std::string& subtree);

/// The element and those below it, one line each; how deep they lie is not known.
std::string description(const FoundElement& element, const std::vector<FoundElement>& below);

}  // namespace quobrak::webdriver
