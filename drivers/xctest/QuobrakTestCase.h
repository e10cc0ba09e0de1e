#pragma once

#import <XCTest/XCTest.h>

/// A test whose driver can foresee a failure that the framework is about to record, without being able to ask before:
/// that an application is not installed, or that no field has the keyboard's focus. The framework documents that a test
/// which overrides `recordIssue:` may keep a failure to itself.
@interface QuobrakTestCase : XCTestCase {
 @private
  BOOL isKeeping_;
  NSString* kept_;
}
/// From now on failures are not recorded but kept, the first one of them.
- (void)beginKeepingFailures;
/// Records failures again. The text of the one that was kept; nil for none.
- (NSString*)endKeepingFailures;
@end
