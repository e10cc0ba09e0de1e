#pragma once

#include <map>
#include <string>

#include "drivers/webdriver/Session.h"
#include "platform/foundation/Clock.h"

namespace quobrak::webdriver {

/// The home screen's process, whose elements the alerts of the system are. It always runs.
inline constexpr const char* SYSTEM_PROCESS = "com.apple.springboard";

/// Which applications run, as far as it matters. A server looks for elements in another application where the wanted
/// one is not in front, without a word; so this has to be known before.
class Applications {
 public:
  /// Both must outlive this object.
  Applications(Session& session, Clock& clock) : session_(session), clock_(clock) {}

  /// Ends it where it runs, starts it, and returns when it is in front. The home screen comes to the front as it is.
  /// Throws `CommandError`.
  void launch(const std::string& bundleIdentifier);
  /// Does nothing to the home screen. Throws `CommandError`.
  void terminate(const std::string& bundleIdentifier);

  /// Whether it is in front, so that its elements can be asked for. The one that was launched last needs no exchange,
  /// and another one only one until `forget`. Throws `CommandError`.
  bool isInFront(const std::string& bundleIdentifier);

  /// The Home button is pressed, or another application comes to the front.
  void leave() { front_.clear(); }

  void forget() { asked_.clear(); }

 private:
  bool askWhetherInFront(const std::string& bundleIdentifier);
  void end(const std::string& bundleIdentifier);

  Session& session_;
  Clock& clock_;
  std::string front_;
  std::map<std::string, bool> asked_;
};

}  // namespace quobrak::webdriver
