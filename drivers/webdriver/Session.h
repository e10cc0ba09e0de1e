#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "drivers/webdriver/Connection.h"
#include "drivers/webdriver/Dialect.h"
#include "drivers/webdriver/TimeLimits.h"
#include "platform/foundation/JSON.h"

namespace quobrak::webdriver {

/// Names the command of one exchange in the session whose id it is given; made anew where a session is.
using CommandInSession = std::function<Command(const std::string& session)>;

/// The session with the server: opened when the first command needs one, opened again where the server lost it, with
/// its settings as they were, and ended with this object.
class Session {
 public:
  /// `capabilities` are what a new session must have.
  Session(Connection connection, Dialect dialect, JSONValue::Object capabilities, const TimeLimits& limits);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Dialect dialect() const { return dialect_; }
  const TimeLimits& limits() const { return limits_; }

  /// Counts the sessions so far. What was found in an earlier one is gone.
  int generation() const { return generation_; }

  /// Carries out a command that changes nothing: where its answer is lost, it is asked again once. Where the session is
  /// lost, a new one takes its place and the command is asked there; `staleElement` is raised in place of that where it
  /// names an element. Throws `CommandError`.
  enum class Names { nothing, anElement };
  JSONValue ask(const CommandInSession& command, Names names = Names::nothing);
  JSONValue ask(const CommandInSession& command, std::chrono::milliseconds timeLimit, Names names = Names::nothing);

  /// Carries out a command that does something: it is sent again only where it surely did not reach the server. Throws
  /// `CommandError`, which says so where nobody knows whether it was carried out; that is so too where the session is
  /// lost, and the next command then finds a new one.
  JSONValue act(const CommandInSession& command, std::chrono::milliseconds timeLimit);

  /// Asks outside the session. Throws `CommandError`.
  JSONValue askWithoutSession(const Command& command);

  /// Makes queries look into that application. An exchange only where another one was chosen before.
  void pin(const std::string& bundleIdentifier);

 private:
  JSONValue askOnce(const CommandInSession& command, std::chrono::milliseconds timeLimit, Names names);
  JSONValue actOnce(const CommandInSession& command, std::chrono::milliseconds timeLimit);
  const std::string& opened();
  void open();
  void lose();

  Connection connection_;
  Dialect dialect_;
  JSONValue::Object capabilities_;
  TimeLimits limits_;

  std::optional<std::string> id_;
  int generation_ = 0;
  /// The application that queries look into; none where the server chooses.
  std::string pinned_;
};

}  // namespace quobrak::webdriver
