#pragma once

#include <span>

#include "phoneserver/Route.h"

namespace quobrak::phoneserver {

/// The routes about sessions, settings and the server itself.
std::span<const Route> sessionRoutes();

}  // namespace quobrak::phoneserver
