#include "platform/uiautomation/XCUIElementQuery.h"

#include <utility>

#include "platform/uiautomation/UIDriver.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak {

XCUIElementQuery XCUIElementQuery::appending(QueryStep step) const {
  XCUIElementQuery longer = *this;
  longer.steps_.push_back(std::move(step));
  return longer;
}

XCUIElementQuery XCUIElementQuery::matching(NSPredicate predicate) const {
  return appending(MatchingPredicateStep{std::move(predicate)});
}

XCUIElementQuery XCUIElementQuery::matchingIdentifier(std::string_view identifier) const {
  return appending(MatchingIdentifierStep{std::string(identifier)});
}

XCUIElement XCUIElementQuery::element() const {
  return XCUIElement(*this, SingleMatch{});
}

XCUIElement XCUIElementQuery::elementMatching(NSPredicate predicate) const {
  return matching(std::move(predicate)).element();
}

XCUIElement XCUIElementQuery::elementBoundBy(std::size_t index) const {
  return XCUIElement(*this, AtIndex{index});
}

XCUIElement XCUIElementQuery::firstMatch() const {
  return XCUIElement(*this, FirstMatch{});
}

XCUIElement XCUIElementQuery::operator[](std::string_view identifier) const {
  return matchingIdentifier(identifier).element();
}

std::size_t XCUIElementQuery::count() const {
  return UIDriver::shared().count(*this);
}

}  // namespace quobrak
