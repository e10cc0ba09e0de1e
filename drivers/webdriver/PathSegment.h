#pragma once

#include <string_view>

namespace quobrak::webdriver {

/// Whether the text can stand as it is between two slashes of a request's path, and means itself there. The ids that
/// servers give do; one that does not would make another command of the one that it stands in.
bool isPathSegment(std::string_view text);

}  // namespace quobrak::webdriver
