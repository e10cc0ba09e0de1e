#pragma once

#include <span>

#include "phoneserver/Route.h"

namespace quobrak::phoneserver {

/// The routes about elements: finding them, asking them.
std::span<const Route> elementRoutes();

}  // namespace quobrak::phoneserver
