#pragma once

#include <span>

#include "phoneserver/Route.h"

namespace quobrak::phoneserver {

/// The routes about alerts.
std::span<const Route> alertRoutes();

}  // namespace quobrak::phoneserver
