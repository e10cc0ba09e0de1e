// The framework's device, waits and test cases.

#include <chrono>

#import "drivers/xctest/Texts.h"
#import "drivers/xctest/XCTestDriver.h"
#include "platform/foundation/Clock.h"
#include "platform/uiautomation/Waiting.h"
#import "tests/drivers/xctest/standins/Framework.h"

using quobrak::testing::Framework;
using quobrak::testing::states;
using quobrak::xctest::Ref;

namespace {

Framework& framework() {
  return Framework::shared();
}

struct ExpectationState {
  Ref<NSPredicate*> predicate;
  Ref<id> object;
};

struct FailureState {
  std::string text;
};

struct PictureState {
  Ref<NSData*> png;
};

constexpr const char* EXPECTATION = "XCTNSPredicateExpectation";
constexpr const char* TEST_CASE = "XCTestCase";

}  // namespace

@implementation XCUIDevice

+ (XCUIDevice*)sharedDevice {
  framework().sent("XCUIDevice", _cmd);
  static XCUIDevice* const device = [[XCUIDevice alloc] init];
  return device;
}

- (void)pressButton:(XCUIDeviceButton)button {
  framework().sent("XCUIDevice", _cmd);
  quobrak::simulator::Phone& phone = framework().phone().phone();
  switch (button) {
    case XCUIDeviceButtonHome:
      return phone.pressHome();
    case XCUIDeviceButtonVolumeUp:
      return phone.changeVolume(1);
    case XCUIDeviceButtonVolumeDown:
      return phone.changeVolume(-1);
  }
}

@end

@implementation XCUIScreen

+ (XCUIScreen*)mainScreen {
  framework().sent("XCUIScreen", _cmd);
  static XCUIScreen* const screen = [[XCUIScreen alloc] init];
  return screen;
}

- (XCUIScreenshot*)screenshot {
  framework().sent("XCUIScreen", _cmd);
  XCUIScreenshot* const picture = [[[XCUIScreenshot alloc] init] autorelease];
  const std::optional<quobrak::Data> png = framework().phone().picture();
  NSData* const bytes =
      png && framework().canEncodePictures ? [NSData dataWithBytes:png->data() length:png->size()] : nil;
  states<PictureState>().insert_or_assign(picture, PictureState{Ref<NSData*>(bytes)});
  return picture;
}

@end

@implementation XCUIScreenshot

- (void)dealloc {
  states<PictureState>().erase(self);
  [super dealloc];
}

- (NSData*)PNGRepresentation {
  framework().sent("XCUIScreenshot", _cmd);
  return states<PictureState>().at(self).png.get();
}

@end

@implementation XCTestExpectation
@end

@implementation XCTNSPredicateExpectation

- (instancetype)initWithPredicate:(NSPredicate*)predicate object:(id)object {
  framework().sent(EXPECTATION, _cmd);
  self = [super init];
  states<ExpectationState>().insert_or_assign(self, ExpectationState{Ref<NSPredicate*>(predicate), Ref<id>(object)});
  return self;
}

- (void)dealloc {
  states<ExpectationState>().erase(self);
  [super dealloc];
}

@end

@implementation XCTWaiter

- (XCTWaiterResult)waitForExpectations:(NSArray*)expectations timeout:(NSTimeInterval)seconds {
  framework().sent("XCTWaiter", _cmd);
  const ExpectationState expectation = states<ExpectationState>().at([expectations objectAtIndex:0]);
  const bool hasCome = quobrak::testing::comesWithin(quobrak::Seconds(seconds), [&expectation] {
    return [expectation.predicate.get() evaluateWithObject:expectation.object.get()] != NO;
  });
  return hasCome ? XCTWaiterResultCompleted : XCTWaiterResultTimedOut;
}

@end

@implementation XCTIssue

- (instancetype)initWithType:(XCTIssueType)type compactDescription:(NSString*)compactDescription {
  framework().sent("XCTIssue", _cmd);
  self = [super init];
  const std::string kind = type == XCTIssueTypeThrownError ? "thrown error: " : "failure: ";
  states<FailureState>().insert_or_assign(self, FailureState{kind + quobrak::xctest::textOf(compactDescription)});
  return self;
}

- (NSString*)compactDescription {
  framework().sent("XCTIssue", _cmd);
  return quobrak::xctest::platformText(states<FailureState>().at(self).text);
}

- (void)dealloc {
  states<FailureState>().erase(self);
  [super dealloc];
}

@end

@implementation XCTestCase

+ (BOOL)runsForEachTargetApplicationUIConfiguration {
  return NO;
}

- (void)setUp {
  framework().sent(TEST_CASE, _cmd);
}

- (void)tearDown {
}

- (BOOL)continueAfterFailure {
  return framework().continueAfterFailure;
}

- (void)setContinueAfterFailure:(BOOL)continueAfterFailure {
  framework().sent(TEST_CASE, _cmd);
  framework().continueAfterFailure = continueAfterFailure;
}

- (void)recordIssue:(XCTIssue*)failure {
  framework().sent(TEST_CASE, _cmd);
  framework().failed(states<FailureState>().at(failure).text);
}

- (id<NSObject>)addUIInterruptionMonitorWithDescription:(NSString*)handlerDescription
                                                handler:(BOOL (^)(XCUIElement*))handler {
  framework().sent(TEST_CASE, _cmd);
  return framework().addMonitor(handler);
}

- (void)removeUIInterruptionMonitor:(id<NSObject>)monitor {
  framework().sent(TEST_CASE, _cmd);
  framework().removeMonitor(static_cast<NSNumber*>(monitor));
}

@end

namespace quobrak::testing {

namespace {

Ref<::XCTestCase*> beginTest(NSString* className, simulator::Phone& phone) {
  auto testCase = Ref<::XCTestCase*>::adopting([[NSClassFromString(className) alloc] init]);
  framework().begin(phone, testCase.get());
  return testCase;
}

}  // namespace

bool comesWithin(Seconds timeout, const std::function<bool()>& holds) {
  constexpr Seconds INTERVAL = std::chrono::milliseconds(50);
  Seconds rest = timeout;
  for (; rest > INTERVAL; rest -= INTERVAL) {
    sleepFor(Clock::shared(), INTERVAL);
    if (holds()) {
      return true;
    }
  }
  sleepFor(Clock::shared(), rest);
  return false;
}

std::unique_ptr<UIDriver> makeDriverOnStandIns(simulator::Phone& phone) {
  const Ref<::XCTestCase*> testCase = beginTest(@"QuobrakTestCase", phone);
  framework().continueAfterFailure = NO;
  return std::make_unique<xctest::XCTestDriver>(static_cast<QuobrakTestCase*>(testCase.get()));
}

TestOutcome runQuobrakUITests(simulator::Phone& phone) {
  const Ref<::XCTestCase*> testCase = beginTest(@"quobrakUITests", phone);
  TestOutcome outcome;
  @autoreleasepool {
    @try {
      [testCase.get() setUp];
      [testCase.get() performSelector:@selector(testMain)];
    } @catch (_XCTestCaseInterruptionException*) {
      outcome.isInterrupted = true;
    }
    [testCase.get() tearDown];
  }
  outcome.failures = framework().failures();
  return outcome;
}

LaunchTestsSetting setUpLaunchTests(simulator::Phone& phone) {
  const Ref<::XCTestCase*> testCase = beginTest(@"quobrakUITestsLaunchTests", phone);
  [testCase.get() setUp];
  return {framework().continueAfterFailure != NO,
          [[testCase.get() class] runsForEachTargetApplicationUIConfiguration] != NO};
}

}  // namespace quobrak::testing
