#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/TestResultV2.h"

namespace quobrak {

/// The shared record of the run in progress. It lives as long as the process and is never reset as a whole: what one
/// script leaves (the application under test, the finished measures) the next one finds.
class TestContext {
 public:
  static TestContext& shared();

  TestContext(const TestContext&) = delete;
  TestContext& operator=(const TestContext&) = delete;

  /// The finished measures, in the order in which they were appended.
  const std::vector<TestResultV2>& getTestResults() const { return testResults_; }
  void appendTestResults(TestResultV2 testResult) { testResults_.push_back(std::move(testResult)); }

  /// The measure being filled. Changing the copy changes nothing here until it is set.
  TestResultV2 getCurrentTestResult() const { return currentTestResult_; }
  void setCurrentTestResult(TestResultV2 currentTestResult) { currentTestResult_ = std::move(currentTestResult); }

  /// The number of the next screenshot of the current script.
  std::int64_t getScreenshotNumber() const { return screenshotNumber_; }
  /// Fatal on overflow.
  void incrementScreenshotNumber();
  void resetScreenshotNumber() { screenshotNumber_ = 1; }

  /// What commands that act on an application raise where none has been chosen.
  static constexpr const char* NO_APPLICATION =
      "The application is not initialised. Please use applicationStart or launchBrowser at the beginning of your "
      "script.";

  /// The application that commands act on. Throws `FWKTError::fdslError` where none has been chosen; whether it runs
  /// is not asked.
  XCUIApplication getTestingApp() const;
  /// Chooses the application, without launching it. An empty identifier means none.
  void setTestingApp(std::string bundleId);

  std::int64_t getIteration() const { return iteration_; }
  void setIteration(std::int64_t iteration) { iteration_ = iteration; }

  /// The result folder of the current script, relative to the Documents directory.
  const std::string& getIterationPath() const { return iterationPath_; }
  void setIterationPath(std::string iterationPath) { iterationPath_ = std::move(iterationPath); }

 private:
  TestContext() = default;

  std::vector<TestResultV2> testResults_;
  TestResultV2 currentTestResult_{.test = "", .testTime = 0, .measures = {{}}};
  std::int64_t screenshotNumber_ = 1;
  XCUIApplication testingApp_{""};
  std::string bundleId_;
  std::int64_t iteration_ = 1;
  std::string iterationPath_;
};

}  // namespace quobrak
