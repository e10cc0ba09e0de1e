#pragma once

#import <XCTest/XCTest.h>

#include "platform/uiautomation/Geometry.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::xctest {

/// An element of the platform, and the application that it is of: nil where the platform handed the element over.
///
/// Asking the platform about an element that is not there, or of an application that does not run, records a failure
/// and ends the test. So `isPresent` is asked first.
struct LocatedElement {
  ::XCUIApplication* application;
  ::XCUIElement* element;
};

bool isRunning(::XCUIApplication* application);
bool isPresent(const LocatedElement& located);

}  // namespace quobrak::xctest

/// The attributes of an element as the seam promises them, for the platform's predicates: an element that is not there
/// has empty texts, no value and false for every truth value. A value that is no text counts as none.
@interface QuobrakElementAttributes : NSObject {
 @private
  XCUIApplication* application_;
  XCUIElement* element_;
}
- (instancetype)initWithLocated:(const quobrak::xctest::LocatedElement&)located;
- (NSString*)label;
- (NSString*)identifier;
- (NSString*)placeholderValue;
- (NSString*)value;
- (BOOL)enabled;
- (BOOL)selected;
- (BOOL)exists;
- (BOOL)hittable;
@end
