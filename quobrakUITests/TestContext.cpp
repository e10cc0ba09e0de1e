#include "quobrakUITests/TestContext.h"

#include <utility>

#include "quobrakUITests/CheckedArithmetic.h"
#include "quobrakUITests/FWKTError.h"

namespace quobrak {

TestContext& TestContext::shared() {
  // Never destroyed, so that nothing that ends late can meet a dead context.
  static TestContext& context = *new TestContext;
  return context;
}

void TestContext::incrementScreenshotNumber() {
  screenshotNumber_ = checkedAdd(screenshotNumber_, std::int64_t{1}, "The screenshot number overflows");
}

XCUIApplication TestContext::getTestingApp() const {
  if (bundleId_.empty()) {
    throw FWKTError::fdslError(NO_APPLICATION);
  }
  return testingApp_;
}

void TestContext::setTestingApp(std::string bundleId) {
  testingApp_ = XCUIApplication(bundleId);
  bundleId_ = std::move(bundleId);
}

}  // namespace quobrak
