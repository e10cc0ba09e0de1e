#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "drivers/simulator/Phone.h"
#include "platform/uiautomation/UIDriver.h"

/// The platform's test framework, as far as the adapter uses it, with the simulated phone in the place of a real one.
/// It does what the framework is known to do: what acts on, or asks about, an element that is missing is recorded as a
/// failure and ends the test; interruption handlers are called, last registered first, when an alert of the system
/// blocks an action; predicates of queries are evaluated by Foundation over pictures of elements, which do not know
/// "exists" and "hittable"; a wait neither looks at once nor at the deadline.
namespace quobrak::testing {

/// The adapter in a test that runs and does not go on after a failure. `phone` must outlive the driver. Time is that of
/// the shared clock. One driver at a time.
std::unique_ptr<UIDriver> makeDriverOnStandIns(simulator::Phone& phone);

/// What was sent to the framework's classes since the last driver or test was made, in order: "XCUIElement tap".
std::vector<std::string> sentSelectors();

/// An exception that the framework raises in place of doing what it is told.
struct InjectedException {
  /// As in `sentSelectors`.
  std::string selector;
  /// Empty for a failure that the framework records, after which it ends the test.
  std::string name;
  std::string reason;
};

/// For the next time that selector is sent.
void inject(InjectedException exception);

/// The same, for the next test that is run.
void injectIntoTest(InjectedException exception);

/// The next picture of the screen cannot be encoded.
void giveNoPicture();

/// A tap on the application by someone else than the driver.
void tapInTheFramework(const std::string& bundleIdentifier);

/// What a test of the bundle left in the framework.
struct TestOutcome {
  std::vector<std::string> failures;
  bool isInterrupted = false;
};

/// Runs -[quobrakUITests testMain] as the platform's runner does.
TestOutcome runQuobrakUITests(simulator::Phone& phone);

/// Sets up -[quobrakUITestsLaunchTests] as the platform's runner does.
struct LaunchTestsSetting {
  bool continuesAfterFailure;
  bool runsForEachConfiguration;
};
LaunchTestsSetting setUpLaunchTests(simulator::Phone& phone);

/// The failures that the framework has recorded since the last driver or test was made.
std::vector<std::string> recordedFailures();

/// Runs the action; the name of the exception of the platform that it ended with, if any. (A test cannot catch one.)
std::optional<std::string> platformExceptionOf(const std::function<void()>& action);

}  // namespace quobrak::testing
