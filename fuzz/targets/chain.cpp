// A class chain, as clients of WebDriver servers write it: it is read, and looks for elements of a screen.

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drivers/simulator/PhoneLoader.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "phoneserver/ClassChain.h"
#include "phoneserver/ClassChainEvaluator.h"
#include "phoneserver/ServedPhone.h"
#include "phoneserver/WireError.h"
#include "platform/foundation/Unicode.h"
#include "platform/foundation/VirtualClock.h"
#include "tests/support/MemoryPhoneFiles.h"

namespace quobrak::fuzz {

namespace {

using phoneserver::ChainSegment;
using phoneserver::FoundElements;
using phoneserver::WireError;
using phoneserver::WireErrorCode;

constexpr const char* PAGE = R"(
    <XCUIElementTypeTable x="0" y="20" width="100" height="60">
      <XCUIElementTypeCell label="Lamp" x="0" y="20" width="100" height="40">
        <XCUIElementTypeStaticText label="Lamp $5`" x="0" y="20" width="50" height="40"/>
        <XCUIElementTypeButton name="buy" x="50" y="20" width="50" height="40"/>
      </XCUIElementTypeCell>
      <XCUIElementTypeCell label="Chair" enabled="false" x="0" y="60" width="100" height="40"/>
    </XCUIElementTypeTable>
    <XCUIElementTypeOther x="0" y="100" width="100" height="50">
      <XCUIElementTypeOther x="0" y="100" width="100" height="50">
        <XCUIElementTypeTextField value="Straße" placeholderValue="Name" x="0" y="100" width="100" height="20"/>
      </XCUIElementTypeOther>
    </XCUIElementTypeOther>)";

const phoneserver::ServedPhone& servedPhone() {
  static VirtualClock clock{std::chrono::milliseconds(1'700'000'000'000)};
  static phoneserver::ServedPhone served(simulator::loadPhone(testing::smallPhone(PAGE)), clock);
  static const bool IS_RUNNING = (served.phone().launch("com.example.test"), true);
  require(IS_RUNNING, "an application can be launched");
  return served;
}

/// None where the chain cannot be read, or cannot be asked of this phone; the error then says why.
template <class Ask>
auto unlessRefused(const Ask& ask) -> std::optional<decltype(ask())> {
  try {
    return ask();
  } catch (const WireError& error) {
    const bool isOfChains =
        error.code() == WireErrorCode::invalidSelector || error.code() == WireErrorCode::unknownError;
    require(isOfChains && isUTF8(error.what()), "what is wrong with a chain is told as that");
    return std::nullopt;
  }
}

std::optional<FoundElements> foundBy(const std::vector<ChainSegment>& chain) {
  constexpr int DEEPEST = 50;
  const phoneserver::ServedPhone& served = servedPhone();
  const simulator::Element& root = served.screenOf("com.example.test");
  return unlessRefused([&] { return elementsOfChain({served, root, DEEPEST}, chain); });
}

/// The place of an element among all of its screen; elements have no others in common.
std::vector<std::uint64_t> numbersOf(const FoundElements& elements) {
  std::vector<std::uint64_t> numbers;
  std::transform(elements.begin(), elements.end(), std::back_inserter(numbers),
                 [](const simulator::Element* element) { return element->number; });
  return numbers;
}

void tryChain(std::vector<ChainSegment> chain) {
  require(!chain.empty(), "a chain has a segment");
  const std::optional<FoundElements> picked = foundBy(chain);
  const std::optional<int> position = std::exchange(chain.back().position, std::nullopt);
  const std::optional<FoundElements> all = foundBy(chain);
  require(all.has_value() == picked.has_value(), "whether a chain can be asked does not depend on what it picks");
  if (!all) {
    return;
  }
  for (const simulator::Element* const element : *all) {
    require(element->parent() != nullptr, "a chain never finds the root");
    require(chain.back().type == ElementType::any || element->type == chain.back().type, "a type is kept to");
  }
  const std::vector<std::uint64_t> numbers = numbersOf(*all);
  require(std::adjacent_find(numbers.begin(), numbers.end(), std::greater_equal<>()) == numbers.end(),
          "elements are found once, in the order of the document");
  const auto count = static_cast<std::ptrdiff_t>(all->size());
  const std::ptrdiff_t index = position.value_or(1) > 0 ? position.value_or(1) - 1 : count + *position;
  const bool isPick = position && index >= 0 && index < count;
  require(*picked == (!position ? *all
                      : isPick  ? FoundElements{(*all)[static_cast<std::size_t>(index)]}
                                : FoundElements()),
          "a position picks from what is found without it");
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  const std::string text = Input(data, size).textRest();
  if (const auto chain = unlessRefused([&text] { return phoneserver::readClassChain(text); })) {
    tryChain(*chain);
  }
  return 0;
}
