#pragma once

#include <string>

/// How drivers name what the commands look for in the application "com.example.test".
namespace quobrak::testing {

inline const std::string APP_IN_WORDS = "the application \"com.example.test\"";

/// The elements that a search by text looks through; `comparison` is "CONTAINS[c]" or "MATCHES".
inline std::string textQueryInWords(const std::string& comparison, const std::string& selector) {
  const std::string condition = " " + comparison + " \"" + selector + "\" AND enabled == TRUE";
  return "the descendants, matching label" + condition + " OR identifier" + condition + " OR placeholderValue" +
         condition + " of " + APP_IN_WORDS;
}

/// The element that a search by text finds first.
inline std::string textElementInWords(const std::string& comparison, const std::string& selector) {
  return "the element (at index 0) of " + textQueryInWords(comparison, selector);
}

/// A point of the application, such as "(0.5, 0.9)".
inline std::string pointInWords(const std::string& offset) {
  return "the point " + offset + " of " + APP_IN_WORDS;
}

}  // namespace quobrak::testing
