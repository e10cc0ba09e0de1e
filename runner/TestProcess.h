#pragma once

#include "runner/Configuration.h"

namespace quobrak {

/// What the test process ends with.
enum class ExitStatus {
  /// The test returned. Scripts may have failed; their statuses tell.
  passed = 0,
  /// The test raised.
  failed = 1,
  /// The configuration or the phone's description is wrong; nothing was touched.
  misconfigured = 2
};

/// Sets up the platform as the environment variables say and runs the one test. Prints what a test runner prints for
/// one test case on standard output, and errors on standard error. Changes the working directory to "/".
ExitStatus runTestProcess();

}  // namespace quobrak
