#include "runner/WebDriverServer.h"

#include <fstream>
#include <iterator>
#include <variant>

#include "platform/foundation/JSON.h"

namespace quobrak {

namespace {

[[noreturn]] void fail(const std::string& file, const std::string& reason) {
  throw ConfigurationError("QUOBRAK_WEBDRIVER_CAPABILITIES is \"" + file + "\", which " + reason);
}

JSONValue::Object capabilitiesIn(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  if (!stream) {
    fail(file, "cannot be read");
  }
  try {
    const JSONValue decoded = JSONDecoder::decode(text);
    if (const auto* const object = std::get_if<JSONValue::Object>(&decoded.variant())) {
      return *object;
    }
  } catch (const DecodingError& error) {
    fail(file, std::string("is no JSON: ") + error.what());
  }
  fail(file, R"(must hold a JSON object of capabilities, such as {"appium:udid": "auto"})");
}

}  // namespace

webdriver::Server webDriverServer(const WebDriverConfiguration& configuration) {
  const webdriver::Dialect dialect = *webdriver::dialectNamed(configuration.dialect);
  JSONValue::Object capabilities;
  if (configuration.capabilities) {
    capabilities = capabilitiesIn(*configuration.capabilities);
  }
  // What is there already stays.
  capabilities.merge(webdriver::usualCapabilities(dialect));
  return {.url = configuration.url, .dialect = dialect, .capabilities = std::move(capabilities)};
}

}  // namespace quobrak
