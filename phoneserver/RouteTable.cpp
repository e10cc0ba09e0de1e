#include "phoneserver/RouteTable.h"

#include <vector>

#include "phoneserver/AlertRoutes.h"
#include "phoneserver/ApplicationRoutes.h"
#include "phoneserver/DeviceRoutes.h"
#include "phoneserver/ElementRoutes.h"
#include "phoneserver/GestureRoutes.h"
#include "phoneserver/KeyRoutes.h"
#include "phoneserver/SessionRoutes.h"

namespace quobrak::phoneserver {

namespace {

using Segments = std::vector<std::string_view>;

Segments segmentsOf(std::string_view path) {
  Segments segments;
  while (!path.empty()) {
    path.remove_prefix(path.starts_with('/') ? 1 : 0);
    const std::string_view segment = path.substr(0, path.find('/'));
    if (!segment.empty()) {
      segments.push_back(segment);
    }
    path.remove_prefix(segment.size());
  }
  return segments;
}

constexpr std::string_view SESSION_PREFIX = "/session/:session";

bool takesAnything(std::string_view segment) {
  return segment.starts_with(':');
}

bool matches(const Segments& pattern, const Segments& path) {
  if (pattern.size() != path.size()) {
    return false;
  }
  for (std::size_t index = 0; index < path.size(); ++index) {
    if (!takesAnything(pattern[index]) && pattern[index] != path[index]) {
      return false;
    }
  }
  return true;
}

Segments patternOf(const Route& route) {
  Segments segments;
  if (route.need == SessionNeed::session) {
    segments = segmentsOf(SESSION_PREFIX);
  }
  for (const std::string_view segment : segmentsOf(route.pattern)) {
    segments.push_back(segment);
  }
  return segments;
}

}  // namespace

std::optional<RouteMatch> matchedRoute(std::span<const Route> routes, std::string_view method, std::string_view path) {
  const Segments wanted = segmentsOf(path);
  for (const Route& route : routes) {
    if (route.method != method) {
      continue;
    }
    const Segments pattern = patternOf(route);
    if (!matches(pattern, wanted)) {
      continue;
    }
    RouteMatch match{.route = &route, .parameters = {}};
    for (std::size_t index = 0; index < pattern.size(); ++index) {
      if (takesAnything(pattern[index])) {
        match.parameters.emplace(pattern[index].substr(1), wanted[index]);
      }
    }
    return match;
  }
  return std::nullopt;
}

std::span<const Route> allRoutes() {
  static const std::vector<Route> ROUTES = [] {
    std::vector<Route> routes;
    for (const std::span<const Route> group : {sessionRoutes(), elementRoutes(), gestureRoutes(), keyRoutes(),
                                               applicationRoutes(), alertRoutes(), deviceRoutes()}) {
      routes.insert(routes.end(), group.begin(), group.end());
    }
    return routes;
  }();
  return ROUTES;
}

}  // namespace quobrak::phoneserver
