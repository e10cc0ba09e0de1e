#include "drivers/xctest/bundle/TestRun.h"

#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/foundation/ConfinedFileManager.h"
#include "platform/foundation/ProcessInfo.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/ReferencePage.h"
#include "quobrakUITests/quobrakUITests.h"
#include "quobrakUITests/quobrakUITestsLaunchTests.h"

namespace quobrak::xctest {

namespace {

ReferencePage referencePage() {
  const std::optional<std::string> address = ProcessInfo::environmentVariable(ReferencePage::VARIABLE);
  if (!address) {
    return {};
  }
  const std::optional<ReferencePage> page = ReferencePage::at(*address);
  if (!page) {
    throw FWKTError::envVariableError(std::string(ReferencePage::VARIABLE) + " is \"" + *address + "\", but must be " +
                                      ReferencePage::RIGHT_ADDRESS);
  }
  return *page;
}

}  // namespace

InstalledPlatform::InstalledPlatform(std::unique_ptr<UIDriver> driver, const std::string& documents) {
  // Before anything is touched, since it may refuse.
  ReferencePage::install(referencePage());
  // What is wrong with the folder is told by whoever opens it.
  std::error_code ignored;
  std::filesystem::create_directories(documents, ignored);
  FileManager::install(std::make_unique<ConfinedFileManager>(documents));
  UIDriver::install(std::move(driver));
}

InstalledPlatform::~InstalledPlatform() {
  UIDriver::install(nullptr);
}

std::optional<std::string> runTestMain(std::unique_ptr<UIDriver> driver, const std::string& documents) {
  try {
    const InstalledPlatform platform(std::move(driver), documents);
    quobrakUITests test;
    test.setUpWithError();
    test.testMain();
    test.tearDownWithError();
    return std::nullopt;
  } catch (const std::exception& error) {
    return error.what();
  }
}

bool continuesAfterFailure() {
  quobrakUITests test;
  test.setUpWithError();
  return test.continueAfterFailure();
}

bool launchTestsContinueAfterFailure() {
  quobrakUITestsLaunchTests test;
  test.setUpWithError();
  return test.continueAfterFailure();
}

bool launchTestsRunForEachConfiguration() {
  return quobrakUITestsLaunchTests::runsForEachTargetApplicationUIConfiguration;
}

}  // namespace quobrak::xctest
