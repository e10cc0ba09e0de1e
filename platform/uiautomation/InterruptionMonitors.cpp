#include "platform/uiautomation/InterruptionMonitors.h"

#include <algorithm>
#include <utility>

namespace quobrak {

namespace {

/// Sets a flag for as long as it lives, also when a handler raises.
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

InterruptionMonitorToken InterruptionMonitors::add(std::string_view description, InterruptionHandler handler) {
  const InterruptionMonitorToken token{++lastToken_};
  monitors_.push_back({token, std::string(description), std::move(handler)});
  return token;
}

void InterruptionMonitors::remove(InterruptionMonitorToken token) {
  std::erase_if(monitors_, [token](const Monitor& monitor) { return monitor.token == token; });
}

bool InterruptionMonitors::askHandlers(const XCUIElement& alert) {
  // A handler may register or remove handlers, so the round goes over a copy.
  const std::vector<Monitor> monitors = monitors_;
  return std::any_of(monitors.rbegin(), monitors.rend(),
                     [&alert](const Monitor& monitor) { return monitor.handler(alert); });
}

void InterruptionMonitors::dealWith(const std::function<std::optional<XCUIElement>()>& blockingAlert) {
  // Without a handler nothing would change, and to look for an alert may cost an exchange with a phone.
  if (isHandling_ || monitors_.empty()) {
    return;
  }
  const Raised handling(isHandling_);
  // Held, so that the next alert cannot be taken for this one by its address.
  std::shared_ptr<const ElementHandle> last;
  while (const std::optional<XCUIElement> alert = blockingAlert()) {
    const auto& handle = std::get<std::shared_ptr<const ElementHandle>>(alert->query().root());
    if (handle == last || !askHandlers(*alert)) {
      return;
    }
    last = handle;
  }
}

}  // namespace quobrak
