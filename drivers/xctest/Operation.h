#pragma once

#import <Foundation/Foundation.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/xctest/HandlerCalls.h"
#include "drivers/xctest/Texts.h"
#include "platform/uiautomation/XCUICoordinate.h"
#include "platform/uiautomation/XCUIElement.h"

namespace quobrak::xctest {

/// The name of the exception by which an interruption handler's error leaves the test framework. `HandlerCalls` keeps
/// the error itself.
extern NSString* const HANDLER_RAISED;

/// Whether an exception of the platform tells of a fault in what was asked, as a message that an object does not
/// understand, a key that it does not know or a range that it does not have. Others end the test and must pass.
bool isForeseen(NSException* exception);

/// One primitive, for the texts of errors and for its exceptions.
class Operation {
 public:
  template <class Target>
  Operation(std::string_view name, const Target& target, HandlerCalls& handlers)
      : name_(name), describe_([&target] { return inWords(target); }), handlers_(handlers) {}

  /// What `ask` answers. An exception of the platform that is foreseen becomes a failure of this operation, and what an
  /// interruption handler raised is raised again; everything else passes.
  ///
  /// The error is raised after the handler of exceptions has been left, and the only handler is for exceptions of the
  /// platform: those of C++ must not meet one in every runtime that this file is compiled for.
  template <class Ask>
  auto guarded(Ask ask) const {
    std::string reason;
    @autoreleasepool {
      @try {
        return ask();
      } @catch (NSException* exception) {
        if (!isForeseen(exception)) {
          @throw;
        }
        reason = textOf([exception reason]);
      }
    }
    handlers_.rethrow();
    fail(reason);
  }

  [[noreturn]] void fail(const std::string& reason) const;

 private:
  static std::string inWords(const std::string& target) { return target; }
  static std::string inWords(const XCUIElementQuery& query) { return describe(query); }
  static std::string inWords(const XCUIElement& element) { return describe(element); }
  static std::string inWords(const XCUICoordinate& point) { return describe(point); }

  std::string_view name_;
  std::function<std::string()> describe_;
  HandlerCalls& handlers_;
};

}  // namespace quobrak::xctest
