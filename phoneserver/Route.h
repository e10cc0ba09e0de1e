#pragma once

#include <map>
#include <string>
#include <string_view>

#include "phoneserver/Arguments.h"
#include "phoneserver/ServedPhone.h"
#include "platform/foundation/JSON.h"

namespace quobrak::phoneserver {

/// A request as its handler sees it.
struct Call {
  /// What stands in the path at the names of the route's pattern, by those names.
  std::map<std::string, std::string, std::less<>> parameters{};
  /// What stands behind the question mark.
  std::map<std::string, std::string, std::less<>> query{};
  Arguments arguments{};

  /// The pattern must have that name.
  const std::string& parameter(std::string_view name) const { return parameters.find(name)->second; }
};

/// Carries a request out and gives its value. Raises `WireError`.
using Handler = JSONValue (*)(ServedPhone& served, const Call& call);

enum class SessionNeed { session, none };

struct Route {
  std::string_view method;
  /// A path; a segment that begins with a colon takes any text. One that needs a session stands behind
  /// /session/:session.
  std::string_view pattern;
  SessionNeed need;
  Handler handler;
};

}  // namespace quobrak::phoneserver
