#pragma once

#include <exception>
#include <map>

#include "platform/uiautomation/UIDriver.h"

namespace quobrak::xctest {

/// The registered interruption handlers, called by the platform's test framework in its own time. Its code lies between
/// a handler and the action that was interrupted, and knows nothing of C++ exceptions: so what a handler raises is kept
/// here, and the action raises it when the framework has returned.
class HandlerCalls {
 public:
  enum class Answer { dealtWith, notDealtWith, raised };

  InterruptionMonitorToken add(InterruptionHandler handler);
  void remove(InterruptionMonitorToken token) { handlers_.erase(token); }

  /// What the handler answers. From inside a handler, and for a handler that was removed, `notDealtWith`. Exceptions of
  /// the platform's own pass through.
  Answer ask(InterruptionMonitorToken token, const XCUIElement& alert);

  /// Raises what a handler raised, once; does nothing where none did.
  void rethrow();

 private:
  std::map<InterruptionMonitorToken, InterruptionHandler> handlers_;
  std::uint64_t lastToken_ = 0;
  bool isHandling_ = false;
  std::exception_ptr raised_;
};

}  // namespace quobrak::xctest
