#import <XCTest/XCTest.h>

#include "drivers/xctest/bundle/TestRun.h"

/// The launch configuration that the platform's runner looks for beside the test. It has no test of its own.
@interface quobrakUITestsLaunchTests : XCTestCase
@end

@implementation quobrakUITestsLaunchTests

+ (BOOL)runsForEachTargetApplicationUIConfiguration {
  return quobrak::xctest::launchTestsRunForEachConfiguration() ? YES : NO;
}

- (void)setUp {
  [super setUp];
  self.continueAfterFailure = quobrak::xctest::launchTestsContinueAfterFailure() ? YES : NO;
}

@end
