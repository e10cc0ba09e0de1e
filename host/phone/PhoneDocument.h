#pragma once

#include <optional>

#include "drivers/simulator/PhoneDescription.h"
#include "host/phone/ScreenPages.h"
#include "host/phone/Selector.h"
#include "host/phone/ShownScreen.h"
#include "platform/foundation/JSON.h"

/// What is shown of a phone, for programs. docs/simulated-phone.md tells of the keys.
namespace quobrak::host {

JSONValue phoneDocument(const simulator::PhoneDescription& phone);

/// `matches` are those of the selector; without one there are none.
JSONValue screenDocument(const ShownScreen& screen, const std::optional<Selector>& selector, const Elements& matches);

}  // namespace quobrak::host
