#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "drivers/webdriver/WebDriverDriver.h"
#include "phoneserver/PhoneServer.h"
#include "tests/conformance/Rig.h"

namespace quobrak::conformance {

/// The phone served on loopback, and a driver that reaches it over WebDriver.
class WebDriverRig : public Rig {
 public:
  explicit WebDriverRig(simulator::PhoneDescription phone);

  std::unique_ptr<UIDriver> takeDriver() override;
  simulator::Phone& phone() override { return phoneServer_.phone(); }
  std::vector<std::string> exchanges() const override;

 protected:
  phoneserver::PhoneServer& phoneServer() { return phoneServer_; }

  /// What the driver speaks with.
  virtual webdriver::Server server() = 0;

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> exchanges_;
  phoneserver::PhoneServer phoneServer_;
};

}  // namespace quobrak::conformance
