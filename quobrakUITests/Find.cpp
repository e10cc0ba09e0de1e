#include "quobrakUITests/Find.h"

#include <string>
#include <utility>
#include <vector>

#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

namespace {

NSPredicate textPredicate(const TextSearch& search) {
  const std::string comparison = search.isTextExact ? "MATCHES" : "CONTAINS[c]";
  std::vector<NSPredicate> alternatives;
  for (const std::string attribute : {"label", "identifier", "placeholderValue"}) {
    alternatives.emplace_back(
        attribute + " " + comparison + " %@ and enabled == %@",
        std::initializer_list<NSPredicate::Argument>{std::string(search.selector), search.isEnabled});
  }
  return NSCompoundPredicate::orPredicate(std::move(alternatives));
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

}  // namespace

std::optional<XCUIElement> Find::lastElementFound;

XCUIElement Find::findByText(const TextSearch& search) {
  if (search.nthElement < 1) {
    throw FWKTError::fdslError("nthElement should be an integer greater than 1");
  }
  const NSPredicate predicate = textPredicate(search);
  const XCUIApplication app = TestContext::shared().getTestingApp();
  return pickNth(app.descendants(ElementType::any).matching(predicate), search.nthElement,
                 "text " + std::string(search.selector));
}

bool labelContains(const XCUIElement& element, std::string_view text) {
  return element.staticTexts().matching(NSPredicate("label CONTAINS[c] %@", {std::string(text)})).firstMatch().exists();
}

}  // namespace quobrak
