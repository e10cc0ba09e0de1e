#pragma once

#include "drivers/simulator/Element.h"
#include "phoneserver/ServedPhone.h"
#include "platform/foundation/JSON.h"

namespace quobrak::phoneserver {

/// An element that was found, as replies carry it: its id and, where the session's settings ask for more than that, the
/// attributes that they list. A session must be open.
JSONValue elementReply(ServedPhone& served, const simulator::Element& element);

}  // namespace quobrak::phoneserver
