#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/check/PreparedLine.h"
#include "host/check/Variables.h"

namespace quobrak::host {

/// A text that was clearly meant as a reference to a variable, and is none.
struct LookAlike {
  /// In bytes of the text.
  Span place;
  std::string text;
  /// What may have been meant, "${NAME}"; empty where nothing is near.
  std::string meant;
};

/// Those of a text: "${a-b}", "${ A }", "${A" without an end, and "$A" for a variable that is set. What a backslash
/// stands before is a part of a pattern.
std::vector<LookAlike> lookAlikesIn(std::string_view text, const Variables& variables);

}  // namespace quobrak::host
