#include "drivers/xctest/bundle/TestRun.h"

#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/foundation/ConfinedFileManager.h"
#include "quobrakUITests/quobrakUITests.h"
#include "quobrakUITests/quobrakUITestsLaunchTests.h"

namespace quobrak::xctest {

InstalledPlatform::InstalledPlatform(std::unique_ptr<UIDriver> driver, const std::string& documents) {
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
