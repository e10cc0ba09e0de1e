#pragma once

#include <string>

#include "drivers/simulator/PhoneDescription.h"
#include "host/terminal/Terminal.h"

namespace quobrak::host {

/// What the phone is: its screen, its named values, its applications and their screens.
std::string phoneOverview(const simulator::PhoneDescription& phone, const Terminal& terminal);

}  // namespace quobrak::host
