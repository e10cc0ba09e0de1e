#pragma once

#include <functional>

#include "platform/foundation/Clock.h"
#include "platform/uiautomation/XCTWaiter.h"

namespace quobrak {

/// The one waiter of all drivers: asks `holds` at once, then after every `interval`, and a last time at the deadline,
/// sleeping on the clock in between. A time-out of 0 or less, or one that is not a number, asks once; one that the
/// clock cannot count saturates. What `holds` raises passes through.
XCTWaiterResult waitUntil(Clock& clock, Seconds timeout, std::chrono::milliseconds interval,
                          const std::function<bool()>& holds);

/// Sleeps on the clock for as long as asked, in as many sleeps as its range needs. 0 or less, or not a number: not at
/// all; more than the clock can count saturates.
void sleepFor(Clock& clock, Seconds duration);

}  // namespace quobrak
