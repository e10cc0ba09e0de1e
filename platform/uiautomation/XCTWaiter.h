#pragma once

#include "platform/foundation/Clock.h"
#include "platform/foundation/NSPredicate.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak {

/// How a wait ended, with the platform's raw values.
enum class XCTWaiterResult {
  completed = 1,
  timedOut = 2,
  incorrectOrder = 3,
  invertedFulfillment = 4,
  interrupted = 5
};

/// The expectation that a predicate comes to hold for an element. The predicate sees an absent element as one without
/// texts and value.
class XCTNSPredicateExpectation {
 public:
  XCTNSPredicateExpectation(NSPredicate predicate, XCUIElement object)
      : predicate_(std::move(predicate)), object_(std::move(object)) {}

  const NSPredicate& predicate() const { return predicate_; }
  const XCUIElement& object() const { return object_; }

 private:
  NSPredicate predicate_;
  XCUIElement object_;
};

/// Waits for an expectation. It records no failure when the time runs out.
class XCTWaiter {
 public:
  XCTWaiterResult wait(const XCTNSPredicateExpectation& expectation, Seconds timeout) const;
};

}  // namespace quobrak
