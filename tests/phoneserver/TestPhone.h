#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "phoneserver/RequestHandler.h"
#include "phoneserver/SearchScope.h"
#include "phoneserver/ServedPhone.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::testing {

/// A small phone (see `smallPhone`) whose application "com.example.test" is in front, with a session open on it, and
/// what a client sends to it.
class TestPhone {
 public:
  explicit TestPhone(const std::string& page = "", const std::string& rules = "[]");
  explicit TestPhone(const simulator::PhoneFiles& files);

  phoneserver::ServedPhone& served() { return served_; }
  simulator::Phone& phone() { return served_.phone(); }
  VirtualClock& clock() { return clock_; }

  /// What the phone answers; a path that begins with "session/" is one of the session.
  phoneserver::Reply reply(const std::string& method, const std::string& path, const std::string& body = "");

  /// The JSON of the value in the answer, with "'" for quotes and without the escapes of slashes. An error is its name,
  /// a colon and its message.
  std::string ask(const std::string& method, const std::string& path, const std::string& body = "");
  std::string get(const std::string& path) { return ask("GET", path); }
  /// "'" stands for a quote in the body.
  std::string post(const std::string& path, const std::string& body = "{}");

  /// The element with that identifier or label on the active screen, of which there must be one.
  const simulator::Element& element(const std::string& name);
  /// Its id on the wire.
  std::string id(const std::string& name);

  /// The whole active screen.
  phoneserver::SearchScope scope(int deepest = 50) { return {served_, served_.activeScreen(), deepest}; }

  /// How long the clock has moved since the application came up.
  std::chrono::milliseconds elapsed() const;

 private:
  VirtualClock clock_{std::chrono::milliseconds(1700000000000)};
  phoneserver::ServedPhone served_;
  Clock::TimePoint start_;
};

/// The names of elements, with blanks between them; "-" for one without.
std::string namesOf(const phoneserver::FoundElements& elements);

/// What `work` raises: its name, a colon and its message; "nothing" where it raises no error of the protocol.
std::string errorOf(const std::function<void()>& work);

}  // namespace quobrak::testing
