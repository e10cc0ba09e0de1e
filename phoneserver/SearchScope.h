#pragma once

#include <vector>

#include "drivers/simulator/Element.h"
#include "phoneserver/ServedPhone.h"

namespace quobrak::phoneserver {

/// In document order.
using FoundElements = std::vector<const simulator::Element*>;

/// Where elements are looked for.
struct SearchScope {
  const ServedPhone& served;
  const simulator::Element& root;
  /// Elements that are more levels below the root do not exist for any search.
  int deepest;
};

}  // namespace quobrak::phoneserver
