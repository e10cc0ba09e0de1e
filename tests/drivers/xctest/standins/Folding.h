#pragma once

#include <string>

namespace quobrak::testing {

/// Full case folding, as the platform's Foundation does it; the one that stands in for it has none.
std::u16string folded(const std::u16string& text);

}  // namespace quobrak::testing
