#pragma once

#include <string>

#include "drivers/simulator/Element.h"
#include "phoneserver/Route.h"
#include "phoneserver/SearchScope.h"

namespace quobrak::phoneserver {

// What a call is about. A session must be open.

/// The element of that id. Raises `WireError` "stale element reference" where the id is not known or the element is
/// gone.
const simulator::Element& requiredElement(ServedPhone& served, const std::string& id);

/// The element that the path names as "element".
const simulator::Element& targetElement(ServedPhone& served, const Call& call);

/// Below that element, as deep as the session's settings let a search go.
SearchScope scopeOf(const ServedPhone& served, const simulator::Element& root);

}  // namespace quobrak::phoneserver
