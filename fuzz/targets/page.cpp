// A page source: it becomes a screen that is looked at, touched everywhere, scrolled to its ends and described.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "drivers/simulator/ElementDescription.h"
#include "drivers/simulator/HitTest.h"
#include "drivers/simulator/PageSource.h"
#include "drivers/simulator/Queries.h"
#include "drivers/simulator/ScreenPainter.h"
#include "drivers/simulator/Scrolling.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Require.h"
#include "fuzz/support/ScreenPromises.h"
#include "platform/foundation/Unicode.h"

namespace quobrak::fuzz {

namespace {

using simulator::Element;

constexpr Size SCREEN{60, 90};

std::unique_ptr<Element> screenOf(std::string_view xml) {
  try {
    return simulator::readPageSource(xml, SCREEN);
  } catch (const simulator::PageSourceError& error) {
    require(std::string_view(error.what()).starts_with("line "), "a fault of a page has a place");
    return nullptr;
  }
}

std::size_t sizeOf(const Element& root) {
  std::size_t size = 1;
  forEachDescendant(root, [&size](const Element&) { ++size; });
  return size;
}

std::string descriptionOf(const Element& root) {
  const XCUIElement application{QueryRoot(ApplicationRoot{"com.example.test"})};
  const simulator::QueryEvaluator queries(simulator::isHittable);
  return simulator::debugDescription(application, queries.stages(application, root), 1);
}

/// Whether a finger that goes on in each direction has moved each list to its end, so that it moves nothing more.
bool scrollsToEnds(Element& root, Point point) {
  constexpr double BEYOND = 4 * END_OF_THE_WORLD;
  constexpr std::array MOVES{
      simulator::FingerMove{.dx = 0, .dy = -BEYOND}, simulator::FingerMove{.dx = -BEYOND, .dy = 0},
      simulator::FingerMove{.dx = BEYOND, .dy = 1}, simulator::FingerMove{.dx = 0, .dy = BEYOND}};
  const std::size_t mostLists = sizeOf(root);
  for (const simulator::FingerMove& move : MOVES) {
    std::size_t moves = 0;
    Element* touched = simulator::elementAt(root, point);
    while (touched != nullptr && simulator::dragContent(*touched, move)) {
      if (++moves > mostLists) {
        return false;
      }
      touched = simulator::elementAt(root, point);
    }
  }
  return true;
}

}  // namespace

}  // namespace quobrak::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quobrak;
  using namespace quobrak::fuzz;
  const std::unique_ptr<simulator::Element> root = screenOf(Input(data, size).rest());
  if (root == nullptr) {
    return 0;
  }
  require(root->type == ElementType::application, "a screen is an application's");
  requireScreenPromises(*root);
  const std::string description = descriptionOf(*root);
  require(isUTF8(description), "a description is a text");
  require(descriptionOf(*root->copy()) == description, "a copy is like what it is a copy of");
  const bool hasEnds = isOfThisWorld(*root);
  constexpr double DISTANCE = 15;
  for (double y = DISTANCE; y < SCREEN.height; y += DISTANCE) {
    const bool isAtEnds = scrollsToEnds(*root, {.x = SCREEN.width / 2, .y = y});
    require(isAtEnds || !hasEnds, "every list comes to its end");
  }
  requireScreenPromises(*root);
  const simulator::Element* const layer = root.get();
  require(simulator::ScreenPainter(SCREEN, 1).png({&layer, 1}).has_value(), "a screen can be drawn");
  return 0;
}
