#include "tests/conformance/WebDriverRig.h"

namespace quobrak::conformance {

namespace {

/// Directly to the phone's own server.
class WdaRig final : public WebDriverRig {
 public:
  using WebDriverRig::WebDriverRig;

 protected:
  webdriver::Server server() override {
    return {.url = phoneServer().url(),
            .dialect = webdriver::Dialect::wda,
            .capabilities = webdriver::usualCapabilities(webdriver::Dialect::wda)};
  }
};

}  // namespace

std::unique_ptr<Rig> makeRig(simulator::PhoneDescription phone) {
  return std::make_unique<WdaRig>(std::move(phone));
}

}  // namespace quobrak::conformance
