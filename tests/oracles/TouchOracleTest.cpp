#include "tests/oracles/TouchOracle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "tests/oracles/PageFacts.h"
#include "tests/oracles/Pages.h"
#include "tests/oracles/ShownPage.h"
#include "tests/oracles/XPathDocument.h"

namespace quobrak::oracles {
namespace {

using ::testing::ElementsAre;

/// The labels of the elements of one of our pages of which that holds, where they have one.
std::vector<std::string> labelsOf(const std::string& pageName, Touchability touchability) {
  const std::vector<Page> pages = ownPages();
  const auto page =
      std::find_if(pages.begin(), pages.end(), [&](const Page& candidate) { return candidate.name == pageName; });
  XPathDocument document(page->source);
  const std::vector<ElementFacts> elements = factsOf(document).elements;
  const TouchOracle oracle(page->source, SCREEN);
  std::vector<std::string> labels;
  for (std::size_t place = 0; place < elements.size(); ++place) {
    if (oracle.touchabilityOf(place) == touchability && !elements[place].label.empty()) {
      labels.push_back(elements[place].label);
    }
  }
  return labels;
}

TEST(TouchOracle, DecidesByRectangles) {
  EXPECT_THAT(labelsOf("layers", Touchability::touchable),
              ElementsAre("Half of it beside", "Labelled", "Under what nobody has labelled", "In the part that is seen",
                          "Over the row", "Where the row would be", "Half in its table", "Beyond the edge"));
  EXPECT_THAT(labelsOf("layers", Touchability::untouchable),
              ElementsAre("Under what is labelled", "Covered in the middle", "In the part that is not", "Not seen",
                          "Out of its table", "At the very edge", "Behind", "Behind"));
  EXPECT_THAT(labelsOf("layers", Touchability::undecided),
              ElementsAre("Under what is called invisible", "Called invisible"));
  EXPECT_THAT(labelsOf("alert", Touchability::touchable),
              ElementsAre("Leave?", "Stay", "Leave", "In front of the alert"));
  EXPECT_THAT(labelsOf("alert", Touchability::untouchable), ElementsAre("Far from the alert"));
}

/// On the simulated phone those elements are hittable of which the rectangles in the document say so.
class Touches : public ::testing::TestWithParam<Page> {};

TEST_P(Touches, ReachWhatTheRectanglesLeaveFree) {
  const TouchOracle oracle(GetParam().source, SCREEN);
  const ShownPage phone(GetParam().source);
  ASSERT_EQ(phone.application().descendants(ElementType::any).count(), oracle.size());
  std::array<std::size_t, 3> counts{};
  for (std::size_t place = 0; place < oracle.size(); ++place) {
    const Touchability touchability = oracle.touchabilityOf(place);
    ++counts[static_cast<std::size_t>(touchability)];
    if (touchability != Touchability::undecided) {
      EXPECT_EQ(phone.element(place).isHittable(), touchability == Touchability::touchable) << place;
    }
  }
  const auto [touchable, untouchable, undecided] = counts;
  std::cout << touchable << " touchable, " << untouchable << " not, " << undecided << " undecided\n";
  EXPECT_GT(touchable + untouchable, 0);
}

INSTANTIATE_TEST_SUITE_P(Own, Touches, ::testing::ValuesIn(ownPages()));
// CTest asks for each of these by its name: see Captures.cmake.
INSTANTIATE_TEST_SUITE_P(Captures, Touches, ::testing::ValuesIn(capturedPages()), ::testing::PrintToStringParamName());

}  // namespace
}  // namespace quobrak::oracles
