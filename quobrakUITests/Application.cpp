#include "quobrakUITests/Application.h"

#include <chrono>
#include <cstdint>

#include "platform/uiautomation/XCUIApplication.h"
#include "quobrakUITests/BrowserManager.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/Device.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/Parameters.h"
#include "quobrakUITests/TestContext.h"
#include "quobrakUITests/WaitObject.h"

namespace quobrak {

namespace {

using std::chrono::milliseconds;

constexpr const char* APP_STORE = "com.apple.AppStore";

/// Milliseconds in which the product's page comes to rest, and in which the sheet that asks for a confirmation comes
/// up.
constexpr std::int64_t PAUSE_BEFORE_GET = 1000;
constexpr std::int64_t PAUSE_BEFORE_CONFIRMATION = 2000;

/// Percent of the screen at which that sheet has its button.
constexpr std::int64_t CONFIRMATION_X = 50;
constexpr std::int64_t CONFIRMATION_Y = 92;

XCUIElement elementMatching(const XCUIApplication& app, std::string_view predicate) {
  return app.descendants(ElementType::any).elementMatching(NSPredicate(predicate));
}

void openInAppStore(const std::string& url) {
  BrowserManager::prepareAndOpen();
  BrowserManager::browserGoToUrl(url);
  TestContext::shared().getTestingApp().buttons()["go"].tap();
  TestContext::shared().setTestingApp(APP_STORE);
}

/// Gets what the account never had before, which the App Store wants confirmed.
void getProduct(const XCUIApplication& app) {
  Device::pause(PAUSE_BEFORE_GET);
  const XCUIElement getButton = elementMatching(app, R"(label MATCHES "get" OR label MATCHES "GET")");
  if (!getButton.exists()) {
    throw FWKTError::fdslError("The get button was not found");
  }
  getButton.tap();
  Device::pause(PAUSE_BEFORE_CONFIRMATION);
  Click::clickByPercent(CONFIRMATION_X, CONFIRMATION_Y);
}

}  // namespace

void Application::applicationStart(const std::string& bundleId) {
  TestContext::shared().setTestingApp(bundleId);
  TestContext::shared().getTestingApp().launch();
}

void Application::applicationKill(const std::string& bundleId) {
  XCUIApplication(bundleId).terminate();
}

void Application::installApp(const std::string& appStoreUrl) {
  openInAppStore(appStoreUrl);
  const XCUIApplication app = TestContext::shared().getTestingApp();
  if (!WaitObject::waitUntilTextExact("Share", DEFAULT_TIMEOUT_WAIT)) {
    throw FWKTError::fdslError("The share button was not found");
  }
  const XCUIElement openButton = elementMatching(app, R"(label MATCHES "open" OR label MATCHES "OPEN")");
  if (openButton.exists()) {
    throw FWKTError::fdslError("The application " + appStoreUrl + " is already installed");
  }
  if (Find::isTextExactExists("re-download")) {
    Click::clickByTextExact("re-download");
  } else {
    getProduct(app);
  }
  if (!openButton.waitForExistence(milliseconds(DEFAULT_TIMEOUT_APP_DOWLOADING))) {
    throw FWKTError::fdslError("The open button was not found");
  }
  applicationKill(APP_STORE);
}

}  // namespace quobrak
