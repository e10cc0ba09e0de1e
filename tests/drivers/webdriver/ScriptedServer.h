#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "drivers/webdriver/CommandError.h"
#include "drivers/webdriver/Dialect.h"
#include "drivers/webdriver/Transport.h"

namespace quobrak::webdriver {

/// A server that knows beforehand what it will be asked. Requests must come in the order in which they are announced,
/// and get the answer that is announced with them; a test fails where they differ, and where one does not come. They
/// are written "METHOD path" or "METHOD path body"; bodies are compared as JSON. The end of a session needs no
/// announcement where it comes last.
class ScriptedServer {
 public:
  ScriptedServer() = default;
  ~ScriptedServer();
  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;

  /// Answered with that value, which is JSON.
  void expect(std::string_view request, std::string_view value = "null");
  /// Answered with an error of the protocol.
  void expectError(std::string_view request, std::string_view code, std::string_view message = "");
  /// Not answered: the transport fails in that way.
  void expectFault(std::string_view request, Fault fault, const std::string& reason);
  /// Answered with exactly that.
  void expectReply(std::string_view request, HttpReply reply);

  /// The requests that open a session and make its settings, with the application that queries look into, if any.
  void expectOpening(const std::string& session, const std::string& pinned = "");

  /// All requests so far.
  const std::vector<std::string>& requests() const { return requests_; }
  /// How long each of them might have taken.
  const std::vector<std::chrono::milliseconds>& timeLimits() const { return timeLimits_; }

  /// A way to this server, which must outlive it.
  std::unique_ptr<Transport> transport();

 private:
  class Line;
  struct Exchange {
    std::string request;
    std::variant<HttpReply, CommandError> answer;
  };

  HttpReply answer(const HttpRequest& request);

  std::deque<Exchange> expected_;
  std::vector<std::string> requests_;
  std::vector<std::chrono::milliseconds> timeLimits_;
};

/// A text as JSON.
std::string inQuotes(std::string_view text);

/// The request that looks for a class chain below `place`, "/session/" and the session's id, or an element there.
std::string chainRequest(Dialect dialect, std::string_view place, std::string_view chain);

/// The request that chooses the application that queries look into.
std::string pinRequest(std::string_view session, std::string_view bundleIdentifier);

/// The request that has the Appium server carry out a script. `arguments` is a JSON object.
std::string scriptRequest(std::string_view session, std::string_view script, std::string_view arguments);

/// What an element is on the wire.
struct WireElement {
  std::string id;
  std::string type = "Button";
  std::string label = "";
  /// The identifier or, without one, the label.
  std::string name = "";
  std::string isHittable = "true";
};

/// What servers answer to a look-up that finds the elements. Each is 30 points wide and 40 high, at (10, 20).
std::string found(const std::vector<WireElement>& elements);

/// Matches what throws a `CommandError` with that fault and that text.
inline auto throwsFault(Fault fault, const std::string& reason) {
  using ::testing::Property;
  return ::testing::Throws<CommandError>(
      ::testing::AllOf(Property("fault", &CommandError::fault, ::testing::Eq(fault)),
                       Property("what", &std::exception::what, ::testing::StrEq(reason))));
}

}  // namespace quobrak::webdriver
