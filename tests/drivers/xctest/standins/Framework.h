#pragma once

#import <XCTest/XCTest.h>

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "drivers/xctest/Ref.h"
#include "tests/drivers/xctest/standins/PhoneAccess.h"
#include "tests/drivers/xctest/standins/StandIns.h"

/// Ends a test whose `continueAfterFailure` is NO.
@interface _XCTestCaseInterruptionException : NSException
@end

namespace quobrak::testing {

using InterruptionBlock = BOOL (^)(::XCUIElement* interruptingElement);

/// Keeps a copy of a block, which no object of the run time that is used here is.
class HeldBlock {
 public:
  explicit HeldBlock(InterruptionBlock block) : block_(Block_copy(block)) {}
  HeldBlock(const HeldBlock& other) : HeldBlock(other.block_) {}
  HeldBlock& operator=(HeldBlock other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~HeldBlock() { Block_release(block_); }

  InterruptionBlock get() const { return block_; }

 private:
  InterruptionBlock block_;
};

/// What the framework knows of the test that runs.
class Framework {
 public:
  static Framework& shared();

  void begin(simulator::Phone& phone, ::XCTestCase* testCase);

  PhoneAccess& phone() { return *phone_; }

  /// To be called first by each method. Does what was injected for that selector.
  void sent(const char* owner, SEL selector);
  const std::vector<std::string>& sentSelectors() const { return sent_; }
  void inject(InjectedException exception) { injected_ = std::move(exception); }
  void injectAtTheBeginning(InjectedException exception) { toInject_ = std::move(exception); }

  bool canEncodePictures = true;

  /// Has the test record the failure.
  void recordFailure(const std::string& text);
  /// What the test makes of it: ends, unless it goes on after failures.
  void failed(const std::string& text);
  const std::vector<std::string>& failures() const { return failures_; }
  BOOL continueAfterFailure = YES;

  NSNumber* addMonitor(InterruptionBlock handler);
  void removeMonitor(NSNumber* monitor);
  /// Calls the handlers as long as there is an alert that blocks an action on what lies in that tree.
  void dealWithInterruptions(const simulator::Element& target);

 private:
  struct Monitor {
    long number;
    HeldBlock handler;
  };

  bool askHandlers(::XCUIElement* alert) const;

  std::optional<PhoneAccess> phone_;
  xctest::Ref<::XCTestCase*> testCase_;
  std::vector<std::string> sent_;
  std::vector<std::string> failures_;
  std::optional<InjectedException> injected_;
  std::optional<InjectedException> toInject_;
  std::vector<Monitor> monitors_;
  long lastMonitor_ = 0;
};

/// A step of the framework's way to elements.
struct Descendants {
  XCUIElementType type;
};
struct Matching {
  xctest::Ref<::NSPredicate*> predicate;
};
struct Picked {
  NSUInteger index;
};
using Step = std::variant<Descendants, Matching, Picked>;

/// How an element or a query is described: from an application, or an alert, on.
struct Chain {
  std::variant<std::string, std::uint64_t> root;
  std::vector<Step> steps;

  Chain appending(Step step) const;
};

/// What is found now. Records a failure where the application does not run.
std::vector<const simulator::Element*> found(const Chain& chain);
/// The element that is there; null where it is not, and a failure is recorded then.
const simulator::Element* required(const Chain& chain);
std::string descriptionOf(const Chain& chain);

/// Whether something comes to hold: looked at after each interval, neither at once nor at the end.
bool comesWithin(Seconds timeout, const std::function<bool()>& holds);

::XCUIElement* elementOf(Chain chain);
::XCUIElementQuery* queryOf(Chain chain);

/// What belongs to an object of the framework, whose declared classes have no room for it.
template <class State>
std::unordered_map<const void*, State>& states() {
  static std::unordered_map<const void*, State> states;
  return states;
}

}  // namespace quobrak::testing
