#import "drivers/xctest/QuobrakTestCase.h"

@implementation QuobrakTestCase

- (void)beginKeepingFailures {
  isKeeping_ = YES;
  kept_ = nil;
}

- (NSString*)endKeepingFailures {
  NSString* const kept = kept_;
  isKeeping_ = NO;
  kept_ = nil;
#if __has_feature(objc_arc)
  return kept;
#else
  return [kept autorelease];
#endif
}

- (void)recordIssue:(XCTIssue*)failure {
  if (!isKeeping_) {
    [super recordIssue:failure];
  } else if (kept_ == nil) {
    kept_ = [[failure compactDescription] copy];
  }
}

@end
