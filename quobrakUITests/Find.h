#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uiautomation/XCTestCase.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak {

/// What to look for with `Find::findByText`.
struct TextSearch {
  std::string_view selector;
  /// The rank among the matches, from 1.
  std::int64_t nthElement;
  /// Only elements in this state are found.
  bool isEnabled;
  /// Whether the selector is a regular expression for the whole text, rather than a part of it in any case.
  bool isTextExact;
};

/// What to look for with `Find::findByClass`.
struct ClassSearch {
  /// The name of the class, as scripts write it: "Button".
  std::string_view selector;
  /// The rank among the matches, from 1.
  std::int64_t nthElement;
  /// Only elements in this state are found.
  bool isEnabled;
};

/// Finds one element of the application under test.
class Find : public XCTestCase {
 public:
  Find() = delete;

  /// The element whose label, identifier or placeholder has the text, remembered as the last element found. Throws
  /// `FWKTError::fdslError` where there is none, or fewer than `nthElement`.
  static XCUIElement findByText(const TextSearch& search);

  /// The element of the class, remembered as the last element found. Throws `FWKTError::fdslError` where there is no
  /// such class, no such element, or fewer than `nthElement`.
  static XCUIElement findByClass(const ClassSearch& search);

  /// Whether `findByText` finds an enabled element that contains the text, in any case. What it finds is remembered; an
  /// error means no.
  static bool isTextExists(std::string_view selector);

  /// The same for a regular expression that matches the whole text.
  static bool isTextExactExists(std::string_view selector);

  /// What searches raise for that rank; none where it is one.
  static std::optional<std::string> rankFault(std::int64_t nthElement);

  /// What `findByClass` raises for that name; none where it is the name of a class.
  static std::optional<std::string> classNameFault(std::string_view name);

  /// The names of the classes that can be searched for, in ascending order.
  static std::vector<std::string_view> classNames();

  /// The result of the last search that succeeded, by whichever script. A failed search leaves it as it was.
  static std::optional<XCUIElement> lastElementFound;
};

/// Whether the element holds a static text whose label contains the text, in any case.
bool labelContains(const XCUIElement& element, std::string_view text);

}  // namespace quobrak
