#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/uiautomation/XCTestCase.h"
#include "quobrakUITests/Parameters.h"
#include "quobrakUITests/TestFile.h"
#include "quobrakUITests/TestStatus.h"

namespace quobrak {

/// The test: reads from the environment what to run, runs it, and leaves the results in the Documents directory. One
/// instance runs one `testMain`.
class quobrakUITests : public XCTestCase {
 public:
  void setUpWithError();
  void tearDownWithError() {}

  /// Answers permission alerts while it runs, and does what the variable `class` says. Throws
  /// `FWKTError::envVariableError` where that is missing or unknown, and what the chosen run raises.
  void testMain();

  /// Runs the variable `command` as one command line: no variables, no comments, no results.
  void dslCommandTest();
  /// Runs the built-in reference script.
  void dslTestReference();
  /// Runs the scripts that the host names.
  void dslTestsSuites();

  /// Runs one command: its name and its arguments, as they stand. Throws `FWKTError::fdslError` for an unknown command
  /// or a malformed argument, and what the command raises. Fatal where a field that a command reads directly is absent.
  virtual void executeCommand(FunctionParameters functionParameters);

  /// The built-in reference script, as a list of one, and its iteration set in the context. Throws
  /// `FWKTError::envVariableError` where `iteration` is missing or no integer.
  std::vector<TestFile> getTestFileForReference();

  /// Runs the scripts one after the other and writes their results. A failing script does not stop the run. Throws
  /// where the Documents directory cannot be cleared or the results cannot be written.
  void launchTest(const std::vector<TestFile>& testFiles);

  /// The scripts that the host names, in its order, and their iteration set in the context. Throws
  /// `FWKTError::envVariableError` for missing or malformed variables and `documentDirectoryError` for a script that
  /// cannot be read. Fatal where `testFileNumber` is below 1, or a suite's name or path is not set.
  std::vector<TestFile> getTestFiles();

  /// Runs a script: substitutes the variables of all lines, and then runs the lines in order until one fails. Throws
  /// `FWKTError::envVariableError` for an unknown variable before any line runs; `fdslError` with the line's text and
  /// number where a command fails with one; other errors of commands unchanged.
  void executeActions(std::string_view script);

  /// The outcomes so far, in the order of the scripts.
  const std::vector<TestStatus>& testStatus() const { return testStatus_; }

 private:
  void runScript(const TestFile& testFile, TestStatus& status);
  void takePictureAndDump(const TestFile& testFile, TestStatus& status);

  std::vector<TestStatus> testStatus_;
};

}  // namespace quobrak
