#include "drivers/webdriver/PathSegment.h"

#include <algorithm>

namespace quobrak::webdriver {

namespace {

/// Those that RFC 3986 allows there, but for the escapes.
bool mayStandInASegment(char character) {
  constexpr std::string_view SIGNS = "-._~!$&'()*+,;=:@";
  const bool isLetter = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
  return isLetter || (character >= '0' && character <= '9') || SIGNS.find(character) != std::string_view::npos;
}

}  // namespace

bool isPathSegment(std::string_view text) {
  // The names of folders that lead elsewhere.
  const bool leadsElsewhere = text.empty() || text == "." || text == "..";
  return !leadsElsewhere && std::all_of(text.begin(), text.end(), mayStandInASegment);
}

}  // namespace quobrak::webdriver
