#include "drivers/xctest/HandlerCalls.h"

#include <utility>

namespace quobrak::xctest {

namespace {

/// Sets a flag for as long as it lives, also when the platform unwinds.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  ~Raised() { flag_ = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
};

}  // namespace

InterruptionMonitorToken HandlerCalls::add(InterruptionHandler handler) {
  const InterruptionMonitorToken token{++lastToken_};
  handlers_.emplace(token, std::move(handler));
  return token;
}

HandlerCalls::Answer HandlerCalls::ask(InterruptionMonitorToken token, const XCUIElement& alert) {
  const auto found = handlers_.find(token);
  if (isHandling_ || found == handlers_.end()) {
    return Answer::notDealtWith;
  }
  const Raised handling(isHandling_);
  // A copy: the handler may remove itself while it runs.
  const InterruptionHandler handler = found->second;
  try {
    return handler(alert) ? Answer::dealtWith : Answer::notDealtWith;
  } catch (const std::exception&) {
    raised_ = std::current_exception();
    return Answer::raised;
  }
}

void HandlerCalls::rethrow() {
  if (raised_ != nullptr) {
    std::rethrow_exception(std::exchange(raised_, nullptr));
  }
}

}  // namespace quobrak::xctest
