#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "tests/conformance/WebDriverRig.h"

namespace quobrak::conformance {

namespace {

/// Through a real Appium server, which takes the served phone for a phone.
class AppiumRig final : public WebDriverRig {
 public:
  AppiumRig(std::string url, simulator::PhoneDescription phone)
      : WebDriverRig(std::move(phone)), url_(std::move(url)) {}

 protected:
  webdriver::Server server() override {
    JSONValue::Object capabilities = webdriver::usualCapabilities(webdriver::Dialect::appium);
    capabilities.insert_or_assign("appium:webDriverAgentUrl", phoneServer().url());
    // Any name will do where the phone's server runs already, but no two sessions may have the same.
    capabilities.insert_or_assign("appium:udid", "phone-" + std::to_string(phoneServer().port()));
    capabilities.insert_or_assign("appium:platformVersion", "18.5");
    return {.url = url_, .dialect = webdriver::Dialect::appium, .capabilities = std::move(capabilities)};
  }

 private:
  std::string url_;
};

const char* serverUrl() {
  return std::getenv("QUOBRAK_APPIUM_URL");
}

/// The server that all tests need. Where there is none, they are skipped before anything of them has run.
class AppiumServer final : public ::testing::Environment {
 public:
  void SetUp() override {
    if (serverUrl() == nullptr) {
      std::cout << "skipped: QUOBRAK_APPIUM_URL names no Appium server; ./dev conformance sets one up" << std::endl;
      constexpr int SKIPPED = 77;
      std::exit(SKIPPED);
    }
  }
};

// Google Test deletes it.
const ::testing::Environment* const APPIUM_SERVER = ::testing::AddGlobalTestEnvironment(new AppiumServer);

}  // namespace

std::unique_ptr<Rig> makeRig(simulator::PhoneDescription phone) {
  return std::make_unique<AppiumRig>(serverUrl(), std::move(phone));
}

}  // namespace quobrak::conformance
