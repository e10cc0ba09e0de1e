#include "runner/WebDriverServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace quobrak {

namespace {

using ::testing::ThrowsMessage;

class WebDriverServer : public ::testing::Test {
 protected:
  webdriver::Server serverWith(const std::string& capabilities) const {
    folder_.write("phone.json", capabilities);
    return webDriverServer({.url = "http://127.0.0.1:1", .dialect = "appium", .capabilities = file()});
  }

  std::string file() const { return (folder_.path() / "phone.json").string(); }

  void expectRefusal(const std::string& capabilities, const std::string& reason) const {
    EXPECT_THAT(
        [&] { serverWith(capabilities); },
        ThrowsMessage<ConfigurationError>("QUOBRAK_WEBDRIVER_CAPABILITIES is \"" + file() + "\", which " + reason));
  }

 private:
  testing::TemporaryFolder folder_;
};

}  // namespace

TEST_F(WebDriverServer, WithoutAFileHasTheUsualCapabilities) {
  const webdriver::Server appium =
      webDriverServer({.url = "http://127.0.0.1:1", .dialect = "appium", .capabilities = std::nullopt});
  EXPECT_EQ(appium.url, "http://127.0.0.1:1");
  EXPECT_EQ(appium.dialect, webdriver::Dialect::appium);
  EXPECT_EQ(appium.capabilities, webdriver::usualCapabilities(webdriver::Dialect::appium));
  const webdriver::Server wda =
      webDriverServer({.url = "http://127.0.0.1:1", .dialect = "wda", .capabilities = std::nullopt});
  EXPECT_EQ(wda.dialect, webdriver::Dialect::wda);
  EXPECT_EQ(wda.capabilities, JSONValue::Object());
}

TEST_F(WebDriverServer, TheCapabilitiesOfTheFileComeFirst) {
  const webdriver::Server server = serverWith(R"({"appium:udid": "00008110-000A", "appium:newCommandTimeout": 600})");
  JSONValue::Object expected = webdriver::usualCapabilities(webdriver::Dialect::appium);
  expected["appium:udid"] = "00008110-000A";
  expected["appium:newCommandTimeout"] = 600;
  EXPECT_EQ(server.capabilities, expected);
}

TEST_F(WebDriverServer, AFileThatCannotBeUsedIsRefused) {
  expectRefusal("[]", R"(must hold a JSON object of capabilities, such as {"appium:udid": "auto"})");
  EXPECT_THAT([&] { webDriverServer({.url = "", .dialect = "wda", .capabilities = "/nowhere/phone.json"}); },
              ThrowsMessage<ConfigurationError>(
                  "QUOBRAK_WEBDRIVER_CAPABILITIES is \"/nowhere/phone.json\", which cannot be read"));
}

TEST_F(WebDriverServer, AFileThatIsNoJsonIsRefusedWithThePlace) {
  EXPECT_THAT([&] { serverWith("{\n  \"appium:udid\": 1,,\n}"); },
              ThrowsMessage<ConfigurationError>(::testing::StartsWith("QUOBRAK_WEBDRIVER_CAPABILITIES is \"" + file() +
                                                                      "\", which is no JSON: line 2, column 20")));
}

}  // namespace quobrak
