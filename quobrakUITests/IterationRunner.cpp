#include <exception>

#include "quobrakUITests/Device.h"
#include "quobrakUITests/Dump.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/File.h"
#include "quobrakUITests/Results.h"
#include "quobrakUITests/RunObserver.h"
#include "quobrakUITests/Screenshot.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/quobrakUITests.h"

namespace quobrak {

void quobrakUITests::launchTest(const std::vector<TestFile>& testFiles) {
  File::clearDocumentDirectory();
  for (std::size_t i = 0; i < testFiles.size(); ++i) {
    const TestFile& testFile = testFiles[i];
    RunObserver::tell(&RunObserver::scriptStarted, testFile, i + 1, testFiles.size());
    TestStatus status{.status = "", .stackTrace = ""};
    TestContext::shared().resetScreenshotNumber();
    TestContext::shared().setIterationPath(testFile.iterationPath);
    runScript(testFile, status);
    takePictureAndDump(testFile, status);
    testStatus_.push_back(status);
    RunObserver::tell(&RunObserver::scriptFinished, testFile, status);
  }
  Results::saveJobResult(testStatus_);
  Device::pressHome();
}

void quobrakUITests::runScript(const TestFile& testFile, TestStatus& status) {
  try {
    executeActions(testFile.script);
    status.status = "success";
  } catch (const FWKTError& error) {
    RunObserver::tell(&RunObserver::scriptRaised, error);
    status = {.status = "failed", .stackTrace = error.message()};
  } catch (const std::exception& error) {
    RunObserver::tell(&RunObserver::scriptRaised, error);
    status = {.status = "failed", .stackTrace = "An unknown error occured while executing actions"};
  }
}

/// What goes wrong here replaces the reason that the script may have failed for, and leaves the status as it is.
void quobrakUITests::takePictureAndDump(const TestFile& testFile, TestStatus& status) {
  constexpr const char* UNKNOWN_ERROR = "An unknown error occured while taking screenshots and dump";
  try {
    takeScreenshot(testFile.iterationPath, status.status);
    takeDump(testFile.iterationPath);
  } catch (const FWKTError& error) {
    RunObserver::tell(&RunObserver::pictureOrDumpRaised, error);
    status.stackTrace = error.errorCase() == FWKTError::Case::envVariableError ? UNKNOWN_ERROR : error.message();
  } catch (const std::exception& error) {
    RunObserver::tell(&RunObserver::pictureOrDumpRaised, error);
    status.stackTrace = UNKNOWN_ERROR;
  }
}

}  // namespace quobrak
