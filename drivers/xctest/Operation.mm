#import "drivers/xctest/Operation.h"

#include "platform/uiautomation/UIAutomationError.h"

namespace quobrak::xctest {

NSString* const HANDLER_RAISED = @"QuobrakHandlerRaised";

bool isForeseen(NSException* exception) {
  // The last one's constant has two names; its text is the same everywhere.
  return [@[
    HANDLER_RAISED, NSInvalidArgumentException, NSInternalInconsistencyException, NSRangeException, NSGenericException,
    @"NSUnknownKeyException"
  ] containsObject:[exception name]];
}

void Operation::fail(const std::string& reason) const {
  throw UIAutomationError(std::string(name_) + " of " + describe_() + " inside XCTest: " + reason);
}

}  // namespace quobrak::xctest
