#pragma once

#include <string>

#include "phoneserver/ServedPhone.h"

namespace quobrak::phoneserver {

/// Says that the application is not installed, and which ones are.
std::string notInstalled(const ServedPhone& served, const std::string& bundleIdentifier);

}  // namespace quobrak::phoneserver
