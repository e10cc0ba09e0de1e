// The framework's elements, queries and points.

#include <chrono>
#include <cmath>

#import "drivers/xctest/Texts.h"
#include "platform/foundation/Clock.h"
#include "platform/uiautomation/Waiting.h"
#import "tests/drivers/xctest/standins/Framework.h"

using quobrak::Seconds;
using quobrak::simulator::Element;
using quobrak::testing::Chain;
using quobrak::testing::Framework;
using quobrak::testing::states;
using quobrak::xctest::platformText;

namespace {

Framework& framework() {
  return Framework::shared();
}

const Chain& chainOf(id object) {
  return states<Chain>().at(object);
}

/// Where a touch on an element is meant to land.
void touch(id element, Seconds duration) {
  const Element* const target = quobrak::testing::required(chainOf(element));
  if (target == nullptr) {
    return;
  }
  framework().dealWithInterruptions(*target);
  // What the alert hid may have gone with it.
  const Element* const touched = quobrak::testing::required(chainOf(element));
  const std::optional<quobrak::Point> point =
      touched == nullptr ? std::nullopt : framework().phone().hitPoint(*touched);
  if (!point) {
    return framework().recordFailure("Failed to determine hittability");
  }
  framework().phone().phone().touch(*point, duration);
}

void swipe(id element, quobrak::SwipeDirection direction) {
  const Element* const target = quobrak::testing::required(chainOf(element));
  if (target == nullptr) {
    return;
  }
  framework().dealWithInterruptions(*target);
  if (const Element* const swiped = quobrak::testing::required(chainOf(element))) {
    framework().phone().phone().swipe(*swiped, direction);
  }
}

struct PointState {
  Chain reference;
  CGVector offset;
};

/// Where the point lies on the screen; none where the element that it is described by is missing.
std::optional<quobrak::Point> onScreen(id coordinate) {
  const PointState& point = states<PointState>().at(coordinate);
  const Element* const reference = quobrak::testing::required(point.reference);
  if (reference == nullptr) {
    return std::nullopt;
  }
  const quobrak::Rect& frame = reference->frame;
  return quobrak::Point{frame.origin.x + point.offset.dx * frame.size.width,
                        frame.origin.y + point.offset.dy * frame.size.height};
}

/// Before a touch on the point.
void dealWithInterruptionsOf(id coordinate) {
  if (const Element* const reference = quobrak::testing::required(states<PointState>().at(coordinate).reference)) {
    framework().dealWithInterruptions(*reference);
  }
}

void touchPoint(id coordinate, Seconds duration) {
  dealWithInterruptionsOf(coordinate);
  if (const std::optional<quobrak::Point> point = onScreen(coordinate)) {
    framework().phone().phone().touch(*point, duration);
  }
}

constexpr const char* ELEMENT = "XCUIElement";
constexpr const char* QUERY = "XCUIElementQuery";
constexpr const char* COORDINATE = "XCUICoordinate";
constexpr const char* APPLICATION = "XCUIApplication";

}  // namespace

@implementation XCUIElement

- (void)dealloc {
  states<Chain>().erase(self);
  [super dealloc];
}

- (NSString*)identifier {
  framework().sent(ELEMENT, _cmd);
  const Element* const element = quobrak::testing::required(chainOf(self));
  return element == nullptr ? @"" : platformText(element->identifier);
}

- (NSString*)label {
  framework().sent(ELEMENT, _cmd);
  const Element* const element = quobrak::testing::required(chainOf(self));
  return element == nullptr ? @"" : platformText(element->label);
}

- (NSString*)placeholderValue {
  framework().sent(ELEMENT, _cmd);
  const Element* const element = quobrak::testing::required(chainOf(self));
  return element != nullptr && element->placeholder ? platformText(*element->placeholder) : nil;
}

- (id)value {
  framework().sent(ELEMENT, _cmd);
  const Element* const element = quobrak::testing::required(chainOf(self));
  return element != nullptr && element->value ? platformText(*element->value) : nil;
}

- (CGRect)frame {
  framework().sent(ELEMENT, _cmd);
  const Element* const element = quobrak::testing::required(chainOf(self));
  const quobrak::Rect frame = element == nullptr ? quobrak::Rect{} : element->frame;
  return NSMakeRect(frame.origin.x, frame.origin.y, frame.size.width, frame.size.height);
}

- (BOOL)isEnabled {
  framework().sent(ELEMENT, _cmd);
  const Element* const element = quobrak::testing::required(chainOf(self));
  return element != nullptr && element->isEnabled ? YES : NO;
}

- (BOOL)isSelected {
  framework().sent(ELEMENT, _cmd);
  const Element* const element = quobrak::testing::required(chainOf(self));
  return element != nullptr && element->isSelected ? YES : NO;
}

- (BOOL)isHittable {
  framework().sent(ELEMENT, _cmd);
  const Element* const element = quobrak::testing::required(chainOf(self));
  return element != nullptr && framework().phone().isHittable(*element) ? YES : NO;
}

- (BOOL)exists {
  framework().sent(ELEMENT, _cmd);
  return quobrak::testing::found(chainOf(self)).empty() ? NO : YES;
}

- (NSString*)debugDescription {
  framework().sent(ELEMENT, _cmd);
  return platformText(quobrak::testing::descriptionOf(chainOf(self)));
}

- (BOOL)waitForExistenceWithTimeout:(NSTimeInterval)timeout {
  framework().sent(ELEMENT, _cmd);
  return quobrak::testing::comesWithin(Seconds(timeout),
                                       [self] { return !quobrak::testing::found(chainOf(self)).empty(); });
}

- (XCUIElementQuery*)descendantsMatchingType:(XCUIElementType)type {
  framework().sent(ELEMENT, _cmd);
  return quobrak::testing::queryOf(chainOf(self).appending(quobrak::testing::Descendants{type}));
}

- (XCUICoordinate*)coordinateWithNormalizedOffset:(CGVector)normalizedOffset {
  framework().sent(ELEMENT, _cmd);
  XCUICoordinate* const coordinate = [[[XCUICoordinate alloc] init] autorelease];
  states<PointState>().insert_or_assign(coordinate, PointState{chainOf(self), normalizedOffset});
  return coordinate;
}

- (void)tap {
  framework().sent(ELEMENT, _cmd);
  touch(self, Seconds::zero());
}

- (void)pressForDuration:(NSTimeInterval)duration {
  framework().sent(ELEMENT, _cmd);
  touch(self, Seconds(duration));
}

- (void)typeText:(NSString*)text {
  framework().sent(ELEMENT, _cmd);
  const Element* const target = quobrak::testing::required(chainOf(self));
  if (target == nullptr) {
    return;
  }
  framework().dealWithInterruptions(*target);
  const Element* const typed = quobrak::testing::required(chainOf(self));
  if (typed != nullptr && !framework().phone().phone().type(*typed, quobrak::xctest::textOf(text))) {
    framework().recordFailure("Neither element nor any descendant has keyboard focus.");
  }
}

- (void)swipeUp {
  framework().sent(ELEMENT, _cmd);
  swipe(self, quobrak::SwipeDirection::up);
}

- (void)swipeDown {
  framework().sent(ELEMENT, _cmd);
  swipe(self, quobrak::SwipeDirection::down);
}

- (void)swipeLeft {
  framework().sent(ELEMENT, _cmd);
  swipe(self, quobrak::SwipeDirection::left);
}

- (void)swipeRight {
  framework().sent(ELEMENT, _cmd);
  swipe(self, quobrak::SwipeDirection::right);
}

@end

@implementation XCUIElementQuery

- (void)dealloc {
  states<Chain>().erase(self);
  [super dealloc];
}

- (NSUInteger)count {
  framework().sent(QUERY, _cmd);
  return quobrak::testing::found(chainOf(self)).size();
}

- (XCUIElement*)firstMatch {
  framework().sent(QUERY, _cmd);
  return quobrak::testing::elementOf(chainOf(self).appending(quobrak::testing::Picked{0}));
}

- (XCUIElement*)elementBoundByIndex:(NSUInteger)index {
  framework().sent(QUERY, _cmd);
  return quobrak::testing::elementOf(chainOf(self).appending(quobrak::testing::Picked{index}));
}

- (NSArray*)allElementsBoundByIndex {
  framework().sent(QUERY, _cmd);
  NSMutableArray* const elements = [NSMutableArray array];
  const NSUInteger count = quobrak::testing::found(chainOf(self)).size();
  for (NSUInteger index = 0; index < count; ++index) {
    [elements addObject:quobrak::testing::elementOf(chainOf(self).appending(quobrak::testing::Picked{index}))];
  }
  return elements;
}

- (XCUIElementQuery*)descendantsMatchingType:(XCUIElementType)type {
  framework().sent(QUERY, _cmd);
  return quobrak::testing::queryOf(chainOf(self).appending(quobrak::testing::Descendants{type}));
}

- (XCUIElementQuery*)matchingPredicate:(NSPredicate*)predicate {
  framework().sent(QUERY, _cmd);
  return quobrak::testing::queryOf(
      chainOf(self).appending(quobrak::testing::Matching{quobrak::xctest::Ref<NSPredicate*>(predicate)}));
}

@end

@implementation XCUICoordinate

- (void)dealloc {
  states<PointState>().erase(self);
  [super dealloc];
}

- (void)tap {
  framework().sent(COORDINATE, _cmd);
  touchPoint(self, Seconds::zero());
}

- (void)pressForDuration:(NSTimeInterval)duration {
  framework().sent(COORDINATE, _cmd);
  touchPoint(self, Seconds(duration));
}

- (void)pressForDuration:(NSTimeInterval)duration thenDragToCoordinate:(XCUICoordinate*)otherCoordinate {
  framework().sent(COORDINATE, _cmd);
  dealWithInterruptionsOf(self);
  const std::optional<quobrak::Point> from = onScreen(self);
  const std::optional<quobrak::Point> to = onScreen(otherCoordinate);
  if (from && to) {
    framework().phone().phone().drag(*from, Seconds(duration), *to);
  }
}

@end

@implementation XCUIApplication

- (instancetype)initWithBundleIdentifier:(NSString*)bundleIdentifier {
  framework().sent(APPLICATION, _cmd);
  self = [super init];
  states<Chain>().insert_or_assign(self, Chain{quobrak::xctest::textOf(bundleIdentifier), {}});
  return self;
}

- (void)launch {
  framework().sent(APPLICATION, _cmd);
  const std::string& name = std::get<std::string>(chainOf(self).root);
  if (!framework().phone().phone().isInstalled(name)) {
    return framework().recordFailure("Failed to launch " + name + ": it is not installed");
  }
  framework().phone().phone().launch(name);
}

- (void)terminate {
  framework().sent(APPLICATION, _cmd);
  framework().phone().phone().terminate(std::get<std::string>(chainOf(self).root));
}

- (XCUIApplicationState)state {
  framework().sent(APPLICATION, _cmd);
  const std::string& name = std::get<std::string>(chainOf(self).root);
  if (framework().phone().screenOf(name) == nullptr) {
    return XCUIApplicationStateNotRunning;
  }
  return framework().phone().phone().isInFront(name) ? XCUIApplicationStateRunningForeground
                                                     : XCUIApplicationStateRunningBackground;
}

@end
