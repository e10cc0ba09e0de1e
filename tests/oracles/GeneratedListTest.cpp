#include "tests/support/GeneratedList.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iomanip>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "quobrakUITests/Find.h"
#include "quobrakUITests/Scroll.h"
#include "tests/oracles/PageFacts.h"
#include "tests/oracles/SearchOracle.h"
#include "tests/oracles/ShownPage.h"

namespace quobrak::oracles {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAreArray;

constexpr std::size_t ELEMENTS = 3000;

double shareOf(const std::vector<ElementFacts>& elements, const std::function<bool(const ElementFacts&)>& condition) {
  const auto count = std::count_if(elements.begin(), elements.end(), condition);
  return static_cast<double>(count) / static_cast<double>(elements.size());
}

// The shares are those of two captured screens of settings with 3,017 elements.
TEST(GeneratedList, IsMadeUpAsCapturesAre) {
  const SearchOracle page(testing::generatedList(ELEMENTS));
  const std::vector<ElementFacts>& elements = page.elements();
  EXPECT_EQ(elements.size(), ELEMENTS - 1);
  struct Row {
    std::string_view what;
    std::function<bool(const ElementFacts&)> isThat;
    double captured;
  };
  const Row ROWS[] = {
      {"Other", [](const ElementFacts& element) { return element.type == "Other"; }, 0.510},
      {"StaticText", [](const ElementFacts& element) { return element.type == "StaticText"; }, 0.308},
      {"Cell", [](const ElementFacts& element) { return element.type == "Cell"; }, 0.155},
      {"Button", [](const ElementFacts& element) { return element.type == "Button"; }, 0.012},
      {"Image", [](const ElementFacts& element) { return element.type == "Image"; }, 0.009},
      {"neither identifier nor label",
       [](const ElementFacts& element) { return element.identifier.empty() && element.label.empty(); }, 0.662},
      {"a label alone",
       [](const ElementFacts& element) { return element.identifier.empty() && !element.label.empty(); }, 0.313},
      {"an identifier and a label",
       [](const ElementFacts& element) { return !element.identifier.empty() && !element.label.empty(); }, 0.014},
      {"an identifier alone",
       [](const ElementFacts& element) { return !element.identifier.empty() && element.label.empty(); }, 0.006},
      {"disabled", [](const ElementFacts& element) { return !element.isEnabled; }, 0.003},
  };
  for (const auto& [what, isThat, captured] : ROWS) {
    EXPECT_THAT(shareOf(elements, isThat), DoubleNear(captured, 0.005)) << what;
    EXPECT_GT(shareOf(elements, isThat), 0) << what;
  }
}

TEST(GeneratedList, HasTheLengthThatIsAskedFor) {
  for (const std::size_t elements : {12U, 13U, 100U, 101U, 102U, 5000U}) {
    EXPECT_EQ(SearchOracle(testing::generatedList(elements)).elements().size(), elements - 1);
  }
}

/// The list on the phone, and what its document says.
class ScrolledList : public ::testing::Test {
 protected:
  const std::vector<ElementFacts>& elements() const { return oracle_.elements(); }
  const ShownPage& phone() const { return phone_; }
  SearchOracle& oracle() { return oracle_; }
  const Places& rows() const { return rows_; }

  /// Where the list shows its rows.
  double top() const { return elements()[table_].frame.origin.y; }
  double bottom() const { return top() + elements()[table_].frame.size.height; }

  /// How far the rows are above where the document has them; the test fails where that is not the same for all.
  double scrolled() const {
    const double scrolled = elements()[rows_.front()].frame.origin.y - phone_.element(rows_.front()).frame().origin.y;
    for (const std::size_t row : rows_) {
      Rect frame = elements()[row].frame;
      frame.origin.y -= scrolled;
      EXPECT_EQ(phone_.element(row).frame(), frame) << row;
    }
    return scrolled;
  }

  bool isWhollyInSight(const Rect& frame) const {
    return top() <= frame.origin.y && frame.origin.y + frame.size.height <= bottom();
  }
  bool isPartlyInSight(const Rect& frame) const {
    return frame.origin.y < bottom() && top() < frame.origin.y + frame.size.height;
  }

  void swipe() const { phone_.element(table_).swipe(SwipeDirection::up); }

  void scrollToTheEnd() const {
    for (double before = -1; before < scrolled();) {
      before = scrolled();
      swipe();
    }
  }

  static XCUIElement foundExactly(const std::string& text) {
    return Find::findByText({.selector = text, .nthElement = 1, .isEnabled = true, .isTextExact = true});
  }

  /// What the phone says of its elements, without the addresses.
  std::string dump() const {
    constexpr std::string_view BEGIN = "Element subtree:\n";
    const std::string text = phone_.application().debugDescription();
    const std::size_t begin = text.find(BEGIN) + BEGIN.size();
    const std::string subtree = text.substr(begin, text.find("Path to element:\n") - begin);
    return withoutAddresses(subtree);
  }

  /// What it has to say where the list is scrolled so far, and so many percent of its way.
  std::string expectedDump(double scrolled, const std::string& percent) const {
    std::string text = " →Application, pid: 102, label: 'House'\n";
    for (const ElementFacts& element : elements()) {
      const bool isScrollBar = element.label.starts_with("Vertical scroll bar");
      const bool isContent = &element > &elements()[table_] && !isScrollBar;
      text += std::string(2 * element.depth + 2, ' ') + element.type + (element.type == "Window" ? " (Main)" : "") +
              ", " + inWords(element.frame, isContent ? scrolled : 0) + quoted("identifier", element.identifier) +
              quoted("label", element.label) + quoted("placeholderValue", element.placeholder.value_or("")) +
              (isScrollBar ? ", value: " + percent : "") + (element.isEnabled ? "" : ", Disabled") + "\n";
    }
    return text;
  }

 private:
  static std::string withoutAddresses(const std::string& text) {
    constexpr std::string_view BEFORE = ", 0x";
    std::string without;
    std::size_t end = 0;
    for (std::size_t begin = 0; (begin = text.find(BEFORE, end)) != text.npos;) {
      without += text.substr(end, begin - end);
      end = text.find_first_not_of("0123456789abcdef", begin + BEFORE.size());
    }
    return without + text.substr(end);
  }

  static std::string quoted(const std::string& name, const std::string& text) {
    return text.empty() ? "" : ", " + name + ": '" + text + "'";
  }

  static std::string inWords(const Rect& frame, double scrolled) {
    std::ostringstream words;
    words << std::fixed << std::setprecision(1) << "{{" << frame.origin.x << ", " << frame.origin.y - scrolled << "}, {"
          << frame.size.width << ", " << frame.size.height << "}}";
    return words.str();
  }

  std::string source_ = testing::generatedList(ELEMENTS);
  SearchOracle oracle_{source_};
  ShownPage phone_{source_};
  Places rows_ = oracle_.ofType("Cell");
  std::size_t table_ = oracle_.ofType("Table").front();
};

TEST_F(ScrolledList, ShowsEveryRowOnTheWayToItsEnd) {
  std::set<std::size_t> seen;
  double before = -1;
  double now = scrolled();
  std::size_t swipes = 0;
  while (before < now) {
    for (const std::size_t row : rows()) {
      const XCUIElement cell = phone().element(row);
      const Rect frame = cell.frame();
      EXPECT_EQ(cell.isHittable(), isPartlyInSight(frame)) << row << " after " << swipes << " swipes";
      if (isWhollyInSight(frame)) {
        seen.insert(row);
      }
    }
    swipe();
    ++swipes;
    before = now;
    now = scrolled();
  }
  const Rect last = elements()[rows().back()].frame;
  EXPECT_EQ(now, last.origin.y + last.size.height - bottom());
  EXPECT_GT(swipes, 10);
  EXPECT_THAT(rows(), ElementsAreArray(seen));
}

TEST_F(ScrolledList, IsSearchedAtItsBeginningAndAtItsEnd) {
  const auto searchForTitles = [this](double isScrolledBy) {
    for (const std::size_t row : rows()) {
      const Places texts = oracle().staticTextsIn(row);
      if (texts.empty()) {
        continue;
      }
      const std::string& title = elements()[texts.front()].label;
      Rect frame = elements()[oracle().having(title).front()].frame;
      frame.origin.y -= isScrolledBy;
      EXPECT_EQ(foundExactly(title).frame(), frame) << title;
    }
  };
  searchForTitles(0);
  scrollToTheEnd();
  searchForTitles(scrolled());
}

TEST_F(ScrolledList, IsDumpedAtItsBeginningAndAtItsEnd) {
  EXPECT_EQ(dump(), expectedDump(0, "0%"));
  scrollToTheEnd();
  EXPECT_EQ(dump(), expectedDump(scrolled(), "100%"));
}

TEST_F(ScrolledList, IsSwipedToATextFarBelow) {
  const std::size_t row = rows()[rows().size() / 2];
  const std::size_t title = oracle().staticTextsIn(row).front();
  EXPECT_FALSE(phone().element(title).isHittable());
  Scroll::swipeDownwardToText(elements()[title].label, 30, 50);
  EXPECT_TRUE(phone().element(title).isHittable());
  EXPECT_TRUE(isPartlyInSight(phone().element(row).frame()));
}

}  // namespace
}  // namespace quobrak::oracles
