#include "tests/conformance/WebDriverRig.h"

#include <utility>

namespace quobrak::conformance {

WebDriverRig::WebDriverRig(simulator::PhoneDescription phone)
    : phoneServer_(std::move(phone), Clock::shared(), {},
                   [this](const phoneserver::Request& request, const phoneserver::Reply&) {
                     const std::lock_guard lock(mutex_);
                     exchanges_.push_back(request.method + " " + request.path);
                   }) {}

std::unique_ptr<UIDriver> WebDriverRig::takeDriver() {
  return std::make_unique<webdriver::WebDriverDriver>(server(), Clock::shared());
}

std::vector<std::string> WebDriverRig::exchanges() const {
  const std::lock_guard lock(mutex_);
  return exchanges_;
}

}  // namespace quobrak::conformance
