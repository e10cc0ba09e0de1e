#pragma once

#include <string>

#include "drivers/simulator/Element.h"
#include "host/phone/ShownScreen.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::testing {

/// The bundle identifier of `lookedAtPhone`'s application.
inline constexpr const char* TEST_APPLICATION = "com.example.test";

/// A phone of 100 x 200 points with all that can lie in the way of a tap: its application "com.example.test" begins
/// with the screen "start", whose launch rule changes the title, and has a screen "other".
MemoryPhoneFiles lookedAtPhone();

/// The screen "start" of that phone as its file has it.
host::ShownScreen lookedAtScreen();

/// The element of the screen with that identifier; fails the test where there is none.
const simulator::Element& elementNamed(const host::ShownScreen& screen, const std::string& identifier);

}  // namespace quobrak::testing
