#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "phoneserver/Route.h"

namespace quobrak::phoneserver {

/// A route that a request took.
struct RouteMatch {
  const Route* route;
  /// By the names in the pattern, and "session" where the route needs one.
  std::map<std::string, std::string, std::less<>> parameters;
};

/// The route among those for the method and path; none where there is none.
std::optional<RouteMatch> matchedRoute(std::span<const Route> routes, std::string_view method, std::string_view path);

/// All routes of the server.
std::span<const Route> allRoutes();

}  // namespace quobrak::phoneserver
