#pragma once

#include <span>

#include "phoneserver/Route.h"

namespace quobrak::phoneserver {

/// The routes about the device: its screen, buttons and state.
std::span<const Route> deviceRoutes();

}  // namespace quobrak::phoneserver
