#include "platform/uiautomation/XCTWaiter.h"

#include "platform/uiautomation/UIDriver.h"

namespace quobrak {

XCTWaiterResult XCTWaiter::wait(const XCTNSPredicateExpectation& expectation, Seconds timeout) const {
  return UIDriver::shared().waitForPredicate(expectation.object(), expectation.predicate(), timeout);
}

}  // namespace quobrak
