#pragma once

#include <optional>
#include <string>

#include "phoneserver/ElementIds.h"
#include "phoneserver/Settings.h"
#include "platform/foundation/JSON.h"

namespace quobrak::phoneserver {

/// What the server keeps for a client between its requests.
struct SessionState {
  std::string id;
  JSONValue::Object capabilities;
  /// The application that the session was opened for; none where it was opened for the whole phone.
  std::optional<std::string> application;
  /// Whether that application is ended with the session.
  bool endsApplication = false;
  Settings settings{};
  ElementIds elements{};
};

}  // namespace quobrak::phoneserver
