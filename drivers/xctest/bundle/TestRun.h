#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/uiautomation/UIDriver.h"

/// The test as the platform's own runner calls it. What raises C++ exceptions and what catches them stays on this side:
/// the platform's side is compiled by compilers that do not let the two kinds of exceptions meet in one function.
namespace quobrak::xctest {

/// The platform of one test: the driver, the reference page that the environment names, and files below the Documents
/// directory, which is made where it is missing. The clock stays the machine's. Throws `FWKTError::envVariableError`
/// where the page's address is wrong, before anything is touched, and `FileManagerError` where the directory cannot be
/// used.
class InstalledPlatform {
 public:
  InstalledPlatform(std::unique_ptr<UIDriver> driver, const std::string& documents);
  ~InstalledPlatform();
  InstalledPlatform(const InstalledPlatform&) = delete;
  InstalledPlatform& operator=(const InstalledPlatform&) = delete;
};

/// Runs the test on a driver of its own. What it raised, in words; none where it returned. An exception of the
/// platform's own passes through.
std::optional<std::string> runTestMain(std::unique_ptr<UIDriver> driver, const std::string& documents);

/// What the test and the launch tests set in the case that runs them.
bool continuesAfterFailure();
bool launchTestsContinueAfterFailure();
bool launchTestsRunForEachConfiguration();

}  // namespace quobrak::xctest
