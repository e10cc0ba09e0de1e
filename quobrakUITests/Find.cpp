#include "quobrakUITests/Find.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/SelectorPredicates.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

struct ClassName {
  std::string_view name;
  ElementType type;
};

/// The classes that a script can search for.
constexpr std::array CLASS_NAMES{
    ClassName{"Button", ElementType::button},
    ClassName{"Cell", ElementType::cell},
    ClassName{"CheckBox", ElementType::checkBox},
    ClassName{"Icon", ElementType::icon},
    ClassName{"Image", ElementType::image},
    ClassName{"Other", ElementType::other},
    ClassName{"RadioButton", ElementType::radioButton},
    ClassName{"StaticText", ElementType::staticText},
    ClassName{"Table", ElementType::table},
    ClassName{"TextField", ElementType::textField},
    ClassName{"TextView", ElementType::textView},
    ClassName{"WebView", ElementType::webView},
    ClassName{"Window", ElementType::window},
};

const ClassName* classNamed(std::string_view name) {
  const auto* const found = std::find_if(CLASS_NAMES.begin(), CLASS_NAMES.end(),
                                         [name](const ClassName& candidate) { return candidate.name == name; });
  return found == CLASS_NAMES.end() ? nullptr : found;
}

void requireNone(const std::optional<std::string>& fault) {
  if (fault) {
    throw FWKTError::fdslError(*fault);
  }
}

/// Picks the element of that rank among the matches, and remembers it.
XCUIElement pickNth(const XCUIElementQuery& query, std::int64_t nthElement, const std::string& sought) {
  const std::size_t count = query.count();
  if (count == 0) {
    throw FWKTError::fdslError("The expected " + sought + " was not found");
  }
  const auto index = static_cast<std::size_t>(nthElement - 1);
  if (index >= count) {
    throw FWKTError::fdslError("The expected " + sought + " was found but there is less than " +
                               std::to_string(nthElement) + " occurences on the screen");
  }
  return Find::lastElementFound.emplace(query.elementBoundBy(index));
}

bool isFound(const TextSearch& search) {
  try {
    Find::findByText(search);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

std::optional<XCUIElement> Find::lastElementFound;

XCUIElement Find::findByText(const TextSearch& search) {
  requireNone(rankFault(search.nthElement));
  const NSPredicate predicate =
      anyTextPredicate({.text = search.selector, .isExact = search.isTextExact}, search.isEnabled);
  const XCUIApplication app = TestContext::shared().getTestingApp();
  return pickNth(app.descendants(ElementType::any).matching(predicate), search.nthElement,
                 "text " + std::string(search.selector));
}

XCUIElement Find::findByClass(const ClassSearch& search) {
  requireNone(classNameFault(search.selector));
  requireNone(rankFault(search.nthElement));
  const XCUIApplication app = TestContext::shared().getTestingApp();
  return pickNth(app.descendants(classNamed(search.selector)->type).matching(statePredicate(search.isEnabled)),
                 search.nthElement, "class " + std::string(search.selector));
}

bool Find::isTextExists(std::string_view selector) {
  return isFound({.selector = selector, .nthElement = 1, .isEnabled = true, .isTextExact = false});
}

bool Find::isTextExactExists(std::string_view selector) {
  return isFound({.selector = selector, .nthElement = 1, .isEnabled = true, .isTextExact = true});
}

std::optional<std::string> Find::rankFault(std::int64_t nthElement) {
  if (nthElement >= 1) {
    return std::nullopt;
  }
  // Host tools know the message, though 1 is accepted.
  return "nthElement should be an integer greater than 1";
}

std::optional<std::string> Find::classNameFault(std::string_view name) {
  if (classNamed(name) != nullptr) {
    return std::nullopt;
  }
  return "The expected class " + std::string(name) + " does not exist";
}

std::vector<std::string_view> Find::classNames() {
  std::vector<std::string_view> names(CLASS_NAMES.size());
  std::transform(CLASS_NAMES.begin(), CLASS_NAMES.end(), names.begin(),
                 [](const ClassName& className) { return className.name; });
  return names;
}

bool labelContains(const XCUIElement& element, std::string_view text) {
  return element.staticTexts().matching(NSPredicate("label CONTAINS[c] %@", {std::string(text)})).firstMatch().exists();
}

}  // namespace quobrak
