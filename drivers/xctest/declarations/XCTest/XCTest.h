#pragma once

// What the adapter uses of the platform's UI-testing framework, declared from its public documentation, so that the
// adapter can be compiled, checked and run where the framework is not. On a Mac the framework's own headers are found
// instead, and this folder is not in the search path.

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

struct CGVector {
  CGFloat dx;
  CGFloat dy;
};
typedef struct CGVector CGVector;

static inline CGVector CGVectorMake(CGFloat dx, CGFloat dy) {
  CGVector vector;
  vector.dx = dx;
  vector.dy = dy;
  return vector;
}

typedef NSRect CGRect;

/// 0 is any, 82 the last one.
typedef NSUInteger XCUIElementType;

typedef NS_ENUM(NSUInteger, XCUIApplicationState) {
  XCUIApplicationStateUnknown = 0,
  XCUIApplicationStateNotRunning = 1,
  XCUIApplicationStateRunningBackgroundSuspended = 2,
  XCUIApplicationStateRunningBackground = 3,
  XCUIApplicationStateRunningForeground = 4
};

typedef NS_ENUM(NSInteger, XCUIDeviceButton) {
  XCUIDeviceButtonHome = 1,
  XCUIDeviceButtonVolumeUp = 2,
  XCUIDeviceButtonVolumeDown = 3
};

typedef NS_ENUM(NSInteger, XCTWaiterResult) {
  XCTWaiterResultCompleted = 1,
  XCTWaiterResultTimedOut = 2,
  XCTWaiterResultIncorrectOrder = 3,
  XCTWaiterResultInvertedFulfillment = 4,
  XCTWaiterResultInterrupted = 5
};

typedef NS_ENUM(NSInteger, XCTIssueType) { XCTIssueTypeAssertionFailure = 0, XCTIssueTypeThrownError = 1 };

@class XCUIElement;
@class XCUIElementQuery;
@class XCUICoordinate;
@class XCUIScreenshot;

@protocol XCUIElementAttributes
@property(readonly) NSString* identifier;
@property(readonly) CGRect frame;
@property(readonly, nullable) id value;
@property(readonly) NSString* label;
@property(readonly, nullable) NSString* placeholderValue;
@property(readonly, getter=isEnabled) BOOL enabled;
@property(readonly, getter=isSelected) BOOL selected;
@end

@interface XCUIElement : NSObject <XCUIElementAttributes>
@property(readonly) BOOL exists;
@property(readonly, getter=isHittable) BOOL hittable;
@property(readonly, copy) NSString* debugDescription;
- (BOOL)waitForExistenceWithTimeout:(NSTimeInterval)timeout;
- (XCUIElementQuery*)descendantsMatchingType:(XCUIElementType)type;
- (XCUICoordinate*)coordinateWithNormalizedOffset:(CGVector)normalizedOffset;
- (void)tap;
- (void)pressForDuration:(NSTimeInterval)duration;
- (void)typeText:(NSString*)text;
- (void)swipeUp;
- (void)swipeDown;
- (void)swipeLeft;
- (void)swipeRight;
@end

@interface XCUIElementQuery : NSObject
@property(readonly) NSUInteger count;
@property(readonly) XCUIElement* firstMatch;
@property(readonly, copy) NSArray<XCUIElement*>* allElementsBoundByIndex;
- (XCUIElement*)elementBoundByIndex:(NSUInteger)index;
- (XCUIElementQuery*)descendantsMatchingType:(XCUIElementType)type;
- (XCUIElementQuery*)matchingPredicate:(NSPredicate*)predicate;
@end

@interface XCUIApplication : XCUIElement
- (instancetype)initWithBundleIdentifier:(NSString*)bundleIdentifier;
- (void)launch;
- (void)terminate;
@property(readonly) XCUIApplicationState state;
@end

@interface XCUICoordinate : NSObject
- (void)tap;
- (void)pressForDuration:(NSTimeInterval)duration;
- (void)pressForDuration:(NSTimeInterval)duration thenDragToCoordinate:(XCUICoordinate*)otherCoordinate;
@end

@interface XCUIDevice : NSObject
@property(class, readonly) XCUIDevice* sharedDevice;
- (void)pressButton:(XCUIDeviceButton)button;
@end

@interface XCUIScreen : NSObject
@property(class, readonly) XCUIScreen* mainScreen;
- (XCUIScreenshot*)screenshot;
@end

@interface XCUIScreenshot : NSObject
@property(readonly) NSData* PNGRepresentation;
@end

@interface XCTestExpectation : NSObject
@end

@interface XCTNSPredicateExpectation : XCTestExpectation
- (instancetype)initWithPredicate:(NSPredicate*)predicate object:(nullable id)object;
@end

@interface XCTWaiter : NSObject
- (XCTWaiterResult)waitForExpectations:(NSArray<XCTestExpectation*>*)expectations timeout:(NSTimeInterval)seconds;
@end

@interface XCTIssue : NSObject
- (instancetype)initWithType:(XCTIssueType)type compactDescription:(NSString*)compactDescription;
@property(readonly, copy) NSString* compactDescription;
@end

@interface XCTestCase : NSObject
@property BOOL continueAfterFailure;
@property(class, readonly) BOOL runsForEachTargetApplicationUIConfiguration;
- (void)setUp;
- (void)tearDown;
- (void)recordIssue:(XCTIssue*)issue;
- (id<NSObject>)addUIInterruptionMonitorWithDescription:(NSString*)handlerDescription
                                                handler:(BOOL (^)(XCUIElement* interruptingElement))handler;
- (void)removeUIInterruptionMonitor:(id<NSObject>)monitor;
@end

NS_ASSUME_NONNULL_END
