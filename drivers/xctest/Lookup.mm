#import "drivers/xctest/Lookup.h"

#include <variant>

#include "drivers/xctest/PredicateFault.h"
#include "drivers/xctest/Predicates.h"

namespace quobrak::xctest {

namespace {

/// What the steps of a query have found so far: one element, what a query of the platform will find, or elements that
/// were asked one by one.
using Found = std::variant<::XCUIElement*, ::XCUIElementQuery*, NSArray*>;

Found foundAtIndex(NSArray* elements, NSUInteger index) {
  if (index < [elements count]) {
    return static_cast<::XCUIElement*>([elements objectAtIndex:index]);
  }
  return [NSArray array];
}

class StepApplication {
 public:
  StepApplication(const Operation& operation, ::XCUIApplication* application, Found found)
      : operation_(operation), application_(application), found_(found) {}

  Found operator()(const DescendantsStep& step) const {
    const auto type = static_cast<XCUIElementType>(step.type);
    if (const auto* const query = std::get_if<::XCUIElementQuery*>(&found_)) {
      return [*query descendantsMatchingType:type];
    }
    NSArray* const roots = elements();
    if ([roots count] > 1) {
      operation_.fail("a query cannot go on to the descendants of several elements after a condition on hittable");
    }
    if ([roots count] == 0) {
      return roots;
    }
    return [static_cast<::XCUIElement*>([roots objectAtIndex:0]) descendantsMatchingType:type];
  }

  Found operator()(const MatchingPredicateStep& step) const {
    if (const std::optional<std::string> fault = predicateFault(step.predicate)) {
      operation_.fail(*fault);
    }
    const auto* const query = std::get_if<::XCUIElementQuery*>(&found_);
    if (query != nullptr && !asksFor(step.predicate, "hittable")) {
      return [*query matchingPredicate:platformPredicate(step.predicate, PredicateScope::query)];
    }
    return elementsFor(platformPredicate(step.predicate, PredicateScope::attributes));
  }

  // A query of the platform by a key would compare with more than the identifier and the label.
  Found operator()(const MatchingIdentifierStep& step) const {
    NSString* const key = platformText(step.identifier);
    ::NSPredicate* const predicate = [::NSPredicate predicateWithFormat:@"identifier == %@ OR label == %@"
                                                          argumentArray:@[ key, key ]];
    if (const auto* const query = std::get_if<::XCUIElementQuery*>(&found_)) {
      return [*query matchingPredicate:predicate];
    }
    return elementsFor(predicate);
  }

  Found operator()(const ElementPick& pick) const {
    const auto* const atIndex = std::get_if<AtIndex>(&pick);
    const auto* const query = std::get_if<::XCUIElementQuery*>(&found_);
    if (query == nullptr) {
      return foundAtIndex(elements(), atIndex == nullptr ? 0 : atIndex->index);
    }
    // The platform's own single match is a failure where there are several.
    return atIndex == nullptr ? [*query firstMatch] : [*query elementBoundByIndex:atIndex->index];
  }

 private:
  NSArray* elements() const {
    if (const auto* const query = std::get_if<::XCUIElementQuery*>(&found_)) {
      return [*query allElementsBoundByIndex];
    }
    if (const auto* const list = std::get_if<NSArray*>(&found_)) {
      return *list;
    }
    return @[ std::get<::XCUIElement*>(found_) ];
  }

  NSArray* elementsFor(::NSPredicate* predicate) const {
    NSMutableArray* const kept = [NSMutableArray array];
    for (::XCUIElement* element in elements()) {
      const auto attributes = Ref<QuobrakElementAttributes*>::adopting(
          [[QuobrakElementAttributes alloc] initWithLocated:{application_, element}]);
      if ([attributes.get() exists] && [predicate evaluateWithObject:attributes.get()]) {
        [kept addObject:element];
      }
    }
    return kept;
  }

  const Operation& operation_;
  ::XCUIApplication* application_;
  Found found_;
};

Found foundBy(const Operation& operation, const LocatedElement& root, const XCUIElementQuery& query) {
  Found found = root.element;
  for (const QueryStep& step : query.steps()) {
    found = std::visit(StepApplication(operation, root.application, found), step);
  }
  return found;
}

::XCUIElement* only(const Found& found) {
  const auto* const element = std::get_if<::XCUIElement*>(&found);
  return element == nullptr ? nil : *element;
}

bool canHaveElements(const LocatedElement& root) {
  return root.element != nil && (root.application == nil || isRunning(root.application));
}

}  // namespace

PlatformElementHandle::PlatformElementHandle(::XCUIElement* element)
    : element_(element), description_("the alert \"" + ([element exists] ? textOf([element label]) : "") + '"') {}

::XCUIApplication* Applications::named(const std::string& bundleIdentifier) {
  Ref<::XCUIApplication*>& application = named_[bundleIdentifier];
  if (application.get() == nil) {
    application = Ref<::XCUIApplication*>::adopting(
        [[::XCUIApplication alloc] initWithBundleIdentifier:platformText(bundleIdentifier)]);
  }
  return application.get();
}

LocatedElement Lookup::rootOf(const QueryRoot& root) const {
  if (const auto* const application = std::get_if<ApplicationRoot>(&root)) {
    ::XCUIApplication* const named = applications_.named(application->bundleIdentifier);
    return {named, named};
  }
  const auto handle =
      std::dynamic_pointer_cast<const PlatformElementHandle>(std::get<std::shared_ptr<const ElementHandle>>(root));
  return {nil, handle == nullptr ? nil : handle->element()};
}

NSUInteger Lookup::count(const XCUIElementQuery& query) const {
  const LocatedElement root = rootOf(query.root());
  if (!canHaveElements(root)) {
    return 0;
  }
  const Found found = foundBy(operation_, root, query);
  if (const auto* const platformQuery = std::get_if<::XCUIElementQuery*>(&found)) {
    return [*platformQuery count];
  }
  if (const auto* const list = std::get_if<NSArray*>(&found)) {
    return [*list count];
  }
  return isPresent({root.application, only(found)}) ? 1 : 0;
}

LocatedElement Lookup::located(const XCUIElement& element) const {
  const LocatedElement root = rootOf(element.query().root());
  if (!element.pick()) {
    return root;
  }
  if (!canHaveElements(root)) {
    return {root.application, nil};
  }
  const Found found = foundBy(operation_, root, element.query());
  return {root.application, only(StepApplication(operation_, root.application, found)(*element.pick()))};
}

::NSPredicate* Lookup::predicateOverAttributes(const NSPredicate& predicate) const {
  if (const std::optional<std::string> fault = predicateFault(predicate)) {
    operation_.fail(*fault);
  }
  return platformPredicate(predicate, PredicateScope::attributes);
}

}  // namespace quobrak::xctest
