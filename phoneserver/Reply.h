#pragma once

#include <optional>
#include <string>

#include "phoneserver/WireError.h"
#include "platform/foundation/JSON.h"

namespace quobrak::phoneserver {

/// What goes back over the wire.
struct Reply {
  int status;
  /// JSON.
  std::string body;
};

/// A command that was carried out. `session` is the session that is open, if one is.
Reply success(JSONValue value, const std::optional<std::string>& session);

/// A command that was not carried out.
Reply failure(const WireError& error, const std::optional<std::string>& session);

}  // namespace quobrak::phoneserver
