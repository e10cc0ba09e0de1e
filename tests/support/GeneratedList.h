#pragma once

#include <cstddef>
#include <string>

#include "platform/uiautomation/Geometry.h"

namespace quobrak::testing {

/// The screen that the list is on.
inline constexpr Size GENERATED_LIST_SCREEN{402, 874};

/// The page source of a long list, as captures of long lists of settings have it: below a bar and a search field a
/// Table of Cells with two lines of text each, some with a picture or buttons, where types, texts and disabled elements
/// are as frequent as in captures. Only the uppermost rows are in sight. The titles differ from row to row; the lines
/// below them are in many scripts and come again and again. It is the same text for the same number of elements, which
/// is at least 12; the Application is one of them, and the last row may lack what would be one too many.
std::string generatedList(std::size_t elements);

}  // namespace quobrak::testing
