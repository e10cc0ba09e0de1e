#pragma once

#include "platform/uiautomation/XCTestCase.h"

namespace quobrak {

/// The launch configuration that the platform's test runner looks for beside the test. It has no test of its own.
class quobrakUITestsLaunchTests : public XCTestCase {
 public:
  static constexpr bool runsForEachTargetApplicationUIConfiguration = true;

  void setUpWithError() { setContinueAfterFailure(false); }
};

}  // namespace quobrak
