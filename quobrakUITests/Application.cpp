#include "quobrakUITests/Application.h"

#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/TestContext.h"

namespace quobrak {

void Application::applicationStart(const std::string& bundleId) {
  TestContext::shared().setTestingApp(bundleId);
  TestContext::shared().getTestingApp().launch();
}

void Application::applicationKill(const std::string& bundleId) {
  XCUIApplication(bundleId).terminate();
}

}  // namespace quobrak
