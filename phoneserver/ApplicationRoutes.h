#pragma once

#include <span>

#include "phoneserver/Route.h"

namespace quobrak::phoneserver {

/// The routes about applications.
std::span<const Route> applicationRoutes();

}  // namespace quobrak::phoneserver
