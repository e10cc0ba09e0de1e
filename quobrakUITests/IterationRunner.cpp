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

namespace {

void tellScriptRaised(const std::exception& error) {
  if (RunObserver* const observer = RunObserver::installed()) {
    observer->scriptRaised(error);
  }
}

void tellPictureOrDumpRaised(const std::exception& error) {
  if (RunObserver* const observer = RunObserver::installed()) {
    observer->pictureOrDumpRaised(error);
  }
}

}  // namespace

void quobrakUITests::launchTest(const std::vector<TestFile>& testFiles) {
  File::clearDocumentDirectory();
  RunObserver* const observer = RunObserver::installed();
  for (std::size_t i = 0; i < testFiles.size(); ++i) {
    const TestFile& testFile = testFiles[i];
    if (observer != nullptr) {
      observer->scriptStarted(testFile, i + 1, testFiles.size());
    }
    TestStatus status{.status = "", .stackTrace = ""};
    TestContext::shared().resetScreenshotNumber();
    TestContext::shared().setIterationPath(testFile.iterationPath);
    runScript(testFile, status);
    takePictureAndDump(testFile, status);
    testStatus_.push_back(status);
    if (observer != nullptr) {
      observer->scriptFinished(testFile, status);
    }
  }
  Results::saveJobResult(testStatus_);
  Device::pressHome();
}

void quobrakUITests::runScript(const TestFile& testFile, TestStatus& status) {
  try {
    executeActions(testFile.script);
    status.status = "success";
  } catch (const FWKTError& error) {
    tellScriptRaised(error);
    status = {.status = "failed", .stackTrace = error.message()};
  } catch (const std::exception& error) {
    tellScriptRaised(error);
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
    tellPictureOrDumpRaised(error);
    status.stackTrace = error.errorCase() == FWKTError::Case::envVariableError ? UNKNOWN_ERROR : error.message();
  } catch (const std::exception& error) {
    tellPictureOrDumpRaised(error);
    status.stackTrace = UNKNOWN_ERROR;
  }
}

}  // namespace quobrak
