#include <cstddef>
#include <optional>
#include <string>

#include "platform/foundation/FatalError.h"
#include "platform/foundation/Paths.h"
#include "platform/foundation/ProcessInfo.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/File.h"
#include "quobrakUITests/Replacing.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/quobrakUITests.h"

namespace quobrak {

namespace {

/// Measures the home screen, then the browser, for half a minute each.
constexpr const char* REFERENCE_SCRIPT =
    "pause,10000\n"
    "measureStart,HomeReference\n"
    "pause,30000\n"
    "measureStop\n"
    "\n"
    "browserPrepareAndOpenForReference\n"
    "measureStart,SafariReference\n"
    "pause,30000\n"
    "measureStop\n"
    "applicationKill,com.apple.mobilesafari";

struct Iteration {
  /// As the host wrote it, which is how folders are named.
  std::string text;
  std::int64_t number;
};

Iteration iterationFromEnvironment() {
  const std::optional<std::string> text = ProcessInfo::environmentVariable("iteration");
  if (!text) {
    throw FWKTError::envVariableError("The iteration is not set");
  }
  const std::optional<std::int64_t> number = parseInteger(*text);
  if (!number) {
    throw FWKTError::envVariableError("The iteration should be an integer");
  }
  return {*text, *number};
}

std::int64_t testFileNumberFromEnvironment() {
  const std::optional<std::string> text = ProcessInfo::environmentVariable("testFileNumber");
  if (!text) {
    throw FWKTError::envVariableError("The test suite number is not set");
  }
  const std::optional<std::int64_t> number = parseInteger(*text);
  if (!number) {
    throw FWKTError::envVariableError("The test suite number " + *text + " should be an integer");
  }
  if (*number < 1) {
    fatalError("Range requires lowerBound <= upperBound: testFileNumber is " + *text + ", but must be at least 1");
  }
  return *number;
}

std::string requiredVariable(const std::string& name) {
  std::optional<std::string> value = ProcessInfo::environmentVariable(name);
  if (!value) {
    fatalError("Unexpectedly found nil: the environment variable " + name + " is not set");
  }
  return *std::move(value);
}

std::string resultFolder(const std::string& suite, const std::string& test, const Iteration& iteration) {
  return "tests-results/" + suite + "/" + test + "/iteration" + iteration.text;
}

}  // namespace

std::vector<TestFile> quobrakUITests::getTestFiles() {
  const Iteration iteration = iterationFromEnvironment();
  const std::int64_t fileCount = testFileNumberFromEnvironment();
  std::vector<TestFile> testFiles;
  for (std::int64_t i = 1; i <= fileCount; ++i) {
    const std::string suite = requiredVariable("testFileSuiteName" + std::to_string(i));
    const std::string path =
        replacingOccurrences(requiredVariable("testFilePath" + std::to_string(i)), "/Documents", "");
    std::string script = File::readFileInDocumentDirectory(path);
    const std::string test = deletingPathExtension(lastPathComponent(path));
    testFiles.push_back({.script = std::move(script), .iterationPath = resultFolder(suite, test, iteration)});
  }
  TestContext::shared().setIteration(iteration.number);
  return testFiles;
}

std::vector<TestFile> quobrakUITests::getTestFileForReference() {
  const Iteration iteration = iterationFromEnvironment();
  const TestFile reference{.script = REFERENCE_SCRIPT,
                           .iterationPath = resultFolder("TestReference", "LaunchTest", iteration)};
  TestContext::shared().setIteration(iteration.number);
  return {reference};
}

}  // namespace quobrak
