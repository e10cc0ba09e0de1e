#include "platform/uiautomation/XCUIElement.h"

#include "platform/uiautomation/UIDriver.h"
#include "platform/uiautomation/XCUICoordinate.h"

namespace quobrak {

namespace {

std::string quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

struct StepDescription {
  std::string operator()(const DescendantsStep& step) const {
    return step.type == ElementType::any ? "descendants" : std::string(nameOf(step.type)) + " descendants";
  }
  std::string operator()(const MatchingPredicateStep& step) const {
    return "matching " + step.predicate.predicateFormat();
  }
  std::string operator()(const MatchingIdentifierStep& step) const { return "keyed " + quoted(step.identifier); }
  std::string operator()(const ElementPick& pick) const { return std::visit(*this, pick); }
  std::string operator()(const AtIndex& pick) const { return "at index " + std::to_string(pick.index); }
  std::string operator()(const FirstMatch&) const { return "first"; }
  std::string operator()(const SingleMatch&) const { return "single"; }
};

struct RootDescription {
  std::string operator()(const ApplicationRoot& root) const {
    return "the application " + quoted(root.bundleIdentifier);
  }
  std::string operator()(const std::shared_ptr<const ElementHandle>& handle) const { return handle->description(); }
};

}  // namespace

XCUIElementQuery XCUIElement::descendants(ElementType type) const {
  return (pick_ ? query_.appending(*pick_) : query_).appending(DescendantsStep{type});
}

bool XCUIElement::exists() const {
  return UIDriver::shared().exists(*this);
}

bool XCUIElement::isHittable() const {
  return UIDriver::shared().isHittable(*this);
}

std::string XCUIElement::label() const {
  return UIDriver::shared().label(*this);
}

std::string XCUIElement::identifier() const {
  return UIDriver::shared().identifier(*this);
}

ElementValue XCUIElement::value() const {
  return UIDriver::shared().value(*this);
}

Rect XCUIElement::frame() const {
  return UIDriver::shared().frame(*this);
}

std::string XCUIElement::debugDescription() const {
  return UIDriver::shared().debugDescription(*this);
}

bool XCUIElement::waitForExistence(Seconds timeout) const {
  return UIDriver::shared().waitForExistence(*this, timeout) == XCTWaiterResult::completed;
}

void XCUIElement::tap() const {
  UIDriver::shared().tap(*this);
}

void XCUIElement::press(Seconds duration) const {
  UIDriver::shared().press(*this, duration);
}

void XCUIElement::typeText(std::string_view text) const {
  UIDriver::shared().typeText(*this, text);
}

void XCUIElement::swipe(SwipeDirection direction) const {
  UIDriver::shared().swipe(*this, direction);
}

XCUICoordinate XCUIElement::coordinate(NormalizedOffset offset) const {
  return XCUICoordinate(*this, offset);
}

std::string describe(const XCUIElementQuery& query) {
  std::string text;
  for (const QueryStep& step : query.steps()) {
    text += (text.empty() ? "the " : ", ") + std::visit(StepDescription{}, step);
  }
  return (text.empty() ? "" : text + " of ") + std::visit(RootDescription{}, query.root());
}

std::string describe(const XCUIElement& element) {
  if (!element.pick()) {
    return describe(element.query());
  }
  return "the element (" + StepDescription{}(*element.pick()) + ") of " + describe(element.query());
}

}  // namespace quobrak
