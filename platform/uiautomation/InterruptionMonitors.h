#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uiautomation/UIDriver.h"

namespace quobrak {

/// The registered interruption handlers, and the one rule by which drivers ask them.
class InterruptionMonitors {
 public:
  InterruptionMonitorToken add(std::string_view description, InterruptionHandler handler);
  void remove(InterruptionMonitorToken token);

  /// Deals with the alerts that block an action. `blockingAlert` gives the alert that is up, with the same handle for
  /// as long as it is the same alert, or none. Each alert is shown to the handlers, last registered first, until one
  /// answers true; the next one follows where alerts are stacked. Ends when no alert is up, when no handler answers
  /// true, or when the handlers left the alert standing. Called from inside a handler it does nothing. What a handler
  /// raises passes through.
  void dealWith(const std::function<std::optional<XCUIElement>()>& blockingAlert);

 private:
  struct Monitor {
    InterruptionMonitorToken token;
    std::string description;
    InterruptionHandler handler;
  };

  bool askHandlers(const XCUIElement& alert);

  std::vector<Monitor> monitors_;
  std::uint64_t lastToken_ = 0;
  bool isHandling_ = false;
};

}  // namespace quobrak
