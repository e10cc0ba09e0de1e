#include "phoneserver/Targets.h"

#include <algorithm>
#include <optional>

#include "phoneserver/WireError.h"

namespace quobrak::phoneserver {

using simulator::Element;

const Element& requiredElement(ServedPhone& served, const std::string& id) {
  const std::optional<std::uint64_t> number = served.session()->elements.numberOf(id);
  const Element* const element = number ? served.elementNumbered(*number) : nullptr;
  if (element == nullptr) {
    throw WireError(
        WireErrorCode::staleElementReference,
        "the element " + id + " is no longer on the phone, or was never found in this session; find it " + "again");
  }
  return *element;
}

const Element& targetElement(ServedPhone& served, const Call& call) {
  return requiredElement(served, call.parameter("element"));
}

SearchScope scopeOf(const ServedPhone& served, const Element& root) {
  // Phones do not go deeper, whatever is set.
  constexpr double DEEPEST = 62;
  constexpr double USUAL = 50;
  const double wanted = served.session() ? served.session()->settings.number("snapshotMaxDepth") : USUAL;
  return {served, root, static_cast<int>(std::clamp(wanted, 0.0, DEEPEST))};
}

}  // namespace quobrak::phoneserver
