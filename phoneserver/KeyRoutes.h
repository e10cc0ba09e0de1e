#pragma once

#include <span>

#include "phoneserver/Route.h"

namespace quobrak::phoneserver {

/// The routes about typing.
std::span<const Route> keyRoutes();

}  // namespace quobrak::phoneserver
