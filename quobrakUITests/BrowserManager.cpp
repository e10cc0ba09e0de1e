#include "quobrakUITests/BrowserManager.h"

#include <cstdint>
#include <string>

#include "quobrakUITests/Application.h"
#include "quobrakUITests/Click.h"
#include "quobrakUITests/Device.h"
#include "quobrakUITests/Find.h"
#include "quobrakUITests/Parameters.h"
#include "quobrakUITests/ReferencePage.h"
#include "quobrakUITests/Scroll.h"
#include "quobrakUITests/SetText.h"

namespace quobrak {

namespace {

constexpr const char* SETTINGS = "com.apple.Preferences";
constexpr const char* BLANK_PAGE = "about:blank";

/// Milliseconds in which an older system asks what to do with the tabs.
constexpr std::int64_t PAUSE_BEFORE_TABS = 3000;
/// Milliseconds for which the reference page is shown.
constexpr std::int64_t PAUSE_ON_REFERENCE_PAGE = 60000;

/// Opens a row of the list that Settings shows, wherever in the list it is.
void openRow(std::string_view label) {
  Scroll::swipeDownwardToText(label, DEFAULT_MAX_SWIPE, DEFAULT_MEDIUM_COORDINATE);
  Click::clickByTextExact(label);
}

bool isOff(const XCUIElement& switchElement) {
  return switchElement.value() == ElementValue(std::string("0"));
}

void confirmOnNewerScreen() {
  Click::clickByTextExact("All history");
  const XCUIElement closeAllTabs =
      Find::findByText({.selector = "CloseAllTabsSwitch", .nthElement = 1, .isEnabled = true, .isTextExact = false});
  if (isOff(closeAllTabs)) {
    Click::clickByTextExact("CloseAllTabsSwitch");
  }
  Click::clickByTextExact("ClearHistoryButton");
}

void confirmOnOlderScreen() {
  Click::clickByTextExact("Clear History and Data");
  Device::pause(PAUSE_BEFORE_TABS);
  if (Find::isTextExactExists("Keep Tabs")) {
    Click::clickByTextExact("Close Tabs");
  }
}

}  // namespace

void BrowserManager::launchBrowser() {
  Application::applicationStart(BROWSER);
}

void BrowserManager::browserGoToUrl(std::string_view url) {
  SetText::setTextByTextExact(url, "Address");
}

void BrowserManager::clearCache() {
  Application::applicationStart(SETTINGS);
  openRow("Safari");
  openRow("Clear History and Website Data");
  if (Find::isTextExactExists("ClearHistoryButton")) {
    confirmOnNewerScreen();
  } else {
    confirmOnOlderScreen();
  }
  Application::applicationKill(SETTINGS);
}

void BrowserManager::prepareAndOpen() {
  clearCache();
  Application::applicationKill(BROWSER);
  launchBrowser();
}

void BrowserManager::prepareAndOpenForReference(bool useBlankPage) {
  prepareAndOpen();
  browserGoToUrl(useBlankPage ? BLANK_PAGE : ReferencePage::shared().address());
  Click::clickByTextExact("go");
  Device::pause(PAUSE_ON_REFERENCE_PAGE);
}

}  // namespace quobrak
