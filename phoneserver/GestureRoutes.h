#pragma once

#include <span>

#include "phoneserver/Route.h"

namespace quobrak::phoneserver {

/// The routes about fingers on the screen.
std::span<const Route> gestureRoutes();

}  // namespace quobrak::phoneserver
