#pragma once

#import <XCTest/XCTest.h>

#include <map>
#include <string>

#include "drivers/xctest/ElementAttributes.h"
#include "drivers/xctest/Operation.h"
#include "drivers/xctest/Ref.h"
#include "platform/uiautomation/XCUIElementQuery.h"

namespace quobrak::xctest {

/// An element that the platform handed over, such as an alert.
class PlatformElementHandle final : public ElementHandle {
 public:
  explicit PlatformElementHandle(::XCUIElement* element);

  ::XCUIElement* element() const { return element_.get(); }
  std::string description() const override { return description_; }

 private:
  Ref<::XCUIElement*> element_;
  std::string description_;
};

/// The platform's objects for the applications that were named so far.
class Applications {
 public:
  ::XCUIApplication* named(const std::string& bundleIdentifier);

 private:
  std::map<std::string, Ref<::XCUIApplication*>> named_;
};

/// Turns descriptions of elements into those of the platform, which resolves them in its own time.
///
/// The framework's queries cannot tell what is hittable. From a condition on that on, the elements are asked one by
/// one.
class Lookup {
 public:
  Lookup(const Operation& operation, Applications& applications) : operation_(operation), applications_(applications) {}

  /// 0 where the application does not run. Fails where the query is one that cannot be asked.
  NSUInteger count(const XCUIElementQuery& query) const;

  /// The element, whether it is there or not; nil where it can be none. Fails as `count` does, but only where the
  /// application runs.
  LocatedElement located(const XCUIElement& element) const;

  /// What the platform makes of a predicate that is evaluated over `QuobrakElementAttributes`. Fails where it has a
  /// fault.
  ::NSPredicate* predicateOverAttributes(const NSPredicate& predicate) const;

 private:
  LocatedElement rootOf(const QueryRoot& root) const;

  const Operation& operation_;
  Applications& applications_;
};

}  // namespace quobrak::xctest
