#import "drivers/xctest/ElementAttributes.h"

namespace quobrak::xctest {

bool isRunning(::XCUIApplication* application) {
  const XCUIApplicationState state = [application state];
  return state != XCUIApplicationStateUnknown && state != XCUIApplicationStateNotRunning;
}

bool isPresent(const LocatedElement& located) {
  if (located.element == nil || (located.application != nil && !isRunning(located.application))) {
    return false;
  }
  return located.element == located.application || [located.element exists];
}

}  // namespace quobrak::xctest

@implementation QuobrakElementAttributes

- (instancetype)initWithLocated:(const quobrak::xctest::LocatedElement&)located {
  self = [super init];
  if (self != nil) {
#if __has_feature(objc_arc)
    application_ = located.application;
    element_ = located.element;
#else
    application_ = [located.application retain];
    element_ = [located.element retain];
#endif
  }
  return self;
}

#if !__has_feature(objc_arc)
- (void)dealloc {
  [application_ release];
  [element_ release];
  [super dealloc];
}
#endif

- (BOOL)exists {
  return quobrak::xctest::isPresent({application_, element_}) ? YES : NO;
}

- (NSString*)label {
  return [self exists] ? [element_ label] : @"";
}

- (NSString*)identifier {
  return [self exists] ? [element_ identifier] : @"";
}

- (NSString*)placeholderValue {
  return [self exists] ? [element_ placeholderValue] : nil;
}

- (NSString*)value {
  const id value = [self exists] ? [element_ value] : nil;
  return [value isKindOfClass:[NSString class]] ? value : nil;
}

- (BOOL)enabled {
  return [self exists] && [element_ isEnabled];
}

- (BOOL)selected {
  return [self exists] && [element_ isSelected];
}

- (BOOL)hittable {
  return [self exists] && [element_ isHittable];
}

@end
