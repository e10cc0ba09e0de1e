#import <XCTest/XCTest.h>

#include <memory>
#include <optional>
#include <string>

#include "drivers/xctest/XCTestDriver.h"
#include "drivers/xctest/bundle/TestRun.h"

/// The test, as the platform's runner finds it.
@interface quobrakUITests : QuobrakTestCase
- (void)testMain;
@end

@implementation quobrakUITests

- (void)setUp {
  [super setUp];
  self.continueAfterFailure = quobrak::xctest::continuesAfterFailure() ? YES : NO;
}

- (void)testMain {
  NSURL* const folder = [[[NSFileManager defaultManager] URLsForDirectory:NSDocumentDirectory
                                                                inDomains:NSUserDomainMask] objectAtIndex:0];
  const std::optional<std::string> raised = quobrak::xctest::runTestMain(
      std::make_unique<quobrak::xctest::XCTestDriver>(self), quobrak::xctest::textOf([folder path]));
  if (raised) {
    const auto failure = quobrak::xctest::Ref<XCTIssue*>::adopting([[XCTIssue alloc]
              initWithType:XCTIssueTypeThrownError
        compactDescription:quobrak::xctest::platformText("caught error: \"" + *raised + '"')]);
    [self recordIssue:failure.get()];
  }
}

@end
