#include "drivers/webdriver/Session.h"

#include <utility>

#include "drivers/webdriver/CommandError.h"
#include "drivers/webdriver/PathSegment.h"

namespace quobrak::webdriver {

namespace {

/// What a look-up brings of each element, so that the questions after it need no exchange.
constexpr const char* RESPONSE_ATTRIBUTES =
    "type,label,rect,enabled,selected,attribute/name,attribute/value,attribute/placeholderValue,attribute/hittable";

/// The most that the phone's accessibility gives.
constexpr int DEEPEST_SNAPSHOT = 62;
/// 0 is the picture as it is, without loss.
constexpr int ORIGINAL_PICTURES = 0;

JSONValue::Object usualSettings() {
  return {{"shouldUseCompactResponses", false},
          {"elementResponseAttributes", RESPONSE_ATTRIBUTES},
          {"snapshotMaxDepth", DEEPEST_SNAPSHOT},
          {"screenshotQuality", ORIGINAL_PICTURES}};
}

Command settingsCommand(const std::string& session, const JSONValue::Object& settings) {
  return {.method = "POST", .path = "/session/" + session + "/appium/settings", .body = {{"settings", settings}}};
}

std::string textIn(const JSONValue& reply, std::string_view key) {
  try {
    return JSONReader(reply).member(key).text();
  } catch (const DecodingError&) {
    return "";
  }
}

std::string idIn(const JSONValue& reply) {
  std::string id = textIn(reply, "sessionId");
  if (id.empty()) {
    throw CommandError(Fault::nonsense, "the server opened a session without saying which");
  }
  if (!isPathSegment(id)) {
    throw CommandError(Fault::nonsense,
                       "the server opened a session with the id \"" + id + "\", which cannot stand in a path");
  }
  return id;
}

}  // namespace

Session::Session(Connection connection, Dialect dialect, JSONValue::Object capabilities, const TimeLimits& limits)
    : connection_(std::move(connection)), dialect_(dialect), capabilities_(std::move(capabilities)), limits_(limits) {}

Session::~Session() {
  if (!id_) {
    return;
  }
  try {
    connection_.carryOut({.method = "DELETE", .path = "/session/" + *id_, .body = {}}, limits_.endOfSession);
  } catch (const CommandError&) {
    // Nobody needs it any more, and the server ends it sooner or later.
  }
}

const std::string& Session::opened() {
  if (!id_) {
    open();
  }
  return *id_;
}

void Session::open() {
  const JSONValue reply = connection_.carryOut(
      {.method = "POST",
       .path = "/session",
       .body = {{"capabilities", JSONValue::Object{{"alwaysMatch", capabilities_},
                                                   {"firstMatch", JSONValue::Array{JSONValue::Object{}}}}}}},
      limits_.newSession);
  id_ = idIn(reply);
  ++generation_;
  JSONValue::Object settings = usualSettings();
  if (!pinned_.empty()) {
    settings.insert_or_assign("defaultActiveApplication", pinned_);
  }
  try {
    connection_.carryOut(settingsCommand(*id_, settings), limits_.command);
  } catch (const CommandError&) {
    // A session without its settings would answer wrongly.
    lose();
    throw;
  }
}

void Session::lose() {
  id_.reset();
}

JSONValue Session::ask(const CommandInSession& command, Names names) {
  return ask(command, limits_.command, names);
}

JSONValue Session::ask(const CommandInSession& command, std::chrono::milliseconds timeLimit, Names names) {
  try {
    return askOnce(command, timeLimit, names);
  } catch (const CommandError& error) {
    if (error.fault() != Fault::notSent && error.fault() != Fault::outcomeUnknown) {
      throw;
    }
  }
  return askOnce(command, timeLimit, names);
}

JSONValue Session::askOnce(const CommandInSession& command, std::chrono::milliseconds timeLimit, Names names) {
  try {
    return connection_.carryOut(command(opened()), timeLimit);
  } catch (const CommandError& error) {
    if (error.fault() != Fault::sessionLost) {
      throw;
    }
  }
  lose();
  opened();
  if (names == Names::anElement) {
    throw CommandError(Fault::staleElement, "the server lost the session in which the element was found");
  }
  return connection_.carryOut(command(opened()), timeLimit);
}

JSONValue Session::act(const CommandInSession& command, std::chrono::milliseconds timeLimit) {
  try {
    return actOnce(command, timeLimit);
  } catch (const CommandError& error) {
    if (error.fault() != Fault::notSent) {
      throw;
    }
  }
  return actOnce(command, timeLimit);
}

JSONValue Session::actOnce(const CommandInSession& command, std::chrono::milliseconds timeLimit) {
  // Where no session can be opened, nothing was done.
  const Command inSession = command(opened());
  try {
    return connection_.carryOut(inSession, timeLimit);
  } catch (const CommandError& error) {
    constexpr const char* UNKNOWN = "so it is not known whether this was done";
    const std::string reason = error.what();
    switch (error.fault()) {
      case Fault::sessionLost:
        lose();
        throw CommandError(Fault::sessionLost,
                           std::string("the server lost the session, ") + UNKNOWN + " (" + reason + ")");
      case Fault::outcomeUnknown:
        throw CommandError(Fault::outcomeUnknown, reason + ", " + UNKNOWN);
      default:
        throw;
    }
  }
}

JSONValue Session::askWithoutSession(const Command& command) {
  opened();
  try {
    return connection_.carryOut(command, limits_.command);
  } catch (const CommandError& error) {
    if (error.fault() != Fault::notSent && error.fault() != Fault::outcomeUnknown) {
      throw;
    }
  }
  return connection_.carryOut(command, limits_.command);
}

void Session::pin(const std::string& bundleIdentifier) {
  if (pinned_ == bundleIdentifier) {
    return;
  }
  pinned_ = bundleIdentifier;
  if (!id_) {
    return;
  }
  try {
    // To choose twice is to choose once.
    ask([&](const std::string& session) {
      return settingsCommand(session, {{"defaultActiveApplication", bundleIdentifier}});
    });
  } catch (const CommandError&) {
    pinned_.clear();
    throw;
  }
}

}  // namespace quobrak::webdriver
