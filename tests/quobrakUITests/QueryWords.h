#pragma once

#include <string>

/// How drivers name what the commands look for, in the application "com.example.test" unless another one is named.
namespace quobrak::testing {

inline std::string appInWords(const std::string& bundleId) {
  return "the application \"" + bundleId + "\"";
}

inline const std::string APP_IN_WORDS = appInWords("com.example.test");

/// The elements that a search by text looks through; `comparison` is "CONTAINS[c]" or "MATCHES".
inline std::string textQueryInWords(const std::string& comparison, const std::string& selector,
                                    const std::string& app = APP_IN_WORDS) {
  const std::string condition = " " + comparison + " \"" + selector + "\" AND enabled == TRUE";
  return "the descendants, matching label" + condition + " OR identifier" + condition + " OR placeholderValue" +
         condition + " of " + app;
}

/// The element that a search by text finds first.
inline std::string textElementInWords(const std::string& comparison, const std::string& selector,
                                      const std::string& app = APP_IN_WORDS) {
  return "the element (at index 0) of " + textQueryInWords(comparison, selector, app);
}

/// A point of the application, such as "(0.5, 0.9)".
inline std::string pointInWords(const std::string& offset, const std::string& app = APP_IN_WORDS) {
  return "the point " + offset + " of " + app;
}

}  // namespace quobrak::testing
