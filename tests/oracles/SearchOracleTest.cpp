#include "tests/oracles/SearchOracle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/foundation/NSPredicate.h"
#include "platform/uiautomation/ElementType.h"
#include "platform/uiautomation/XCUIElement.h"
#include "platform/uiautomation/XCUIElementQuery.h"
#include "quobrakUITests/FWKTError.h"
#include "quobrakUITests/Find.h"
#include "tests/oracles/Alphabets.h"
#include "tests/oracles/Pages.h"
#include "tests/oracles/ShownPage.h"

namespace quobrak::oracles {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::array STATES{true, false};

/// A text that no screen has, so that there is always a search.
constexpr const char* NOWHERE = "Quobrak nowhere";

TEST(SearchOracle, KnowsWhatItsPageSays) {
  SearchOracle oracle(R"(
<XCUIElementTypeApplication name="App" label="App">
  <XCUIElementTypeButton name="ok" label="OK" enabled="false"/>
  <XCUIElementTypeButton name="OK" label="OK"/>
  <XCUIElementTypeCell name="OK" label="OK" identifier="first.ok">
    <XCUIElementTypeStaticText type="XCUIElementTypeStaticText" name="Größe" label="Größe"/>
    <XCUIElementTypeTextField name="GRÖSSE" placeholderValue="Groß"/>
  </XCUIElementTypeCell>
</XCUIElementTypeApplication>)");
  std::vector<std::string> identifiers;
  for (const ElementFacts& element : oracle.elements()) {
    identifiers.push_back(element.identifier);
  }
  EXPECT_THAT(identifiers, ElementsAre("ok", "", "first.ok", "", "GRÖSSE"));
  EXPECT_THAT(oracle.texts(), ElementsAre("GRÖSSE", "Groß", "Größe", "OK", "first.ok", "ok"));
  EXPECT_THAT(oracle.types(), ElementsAre("Button", "Cell", "StaticText", "TextField"));
  EXPECT_THAT(oracle.containing("oK"), ElementsAre(0, 1, 2));
  EXPECT_THAT(oracle.containing("grö"), ElementsAre(3, 4));
  EXPECT_THAT(oracle.containing("gro"), ElementsAre(4));
  EXPECT_THAT(oracle.having("OK"), ElementsAre(0, 1, 2));
  EXPECT_THAT(oracle.having("ok"), ElementsAre(0));
  EXPECT_THAT(oracle.having("Groß"), ElementsAre(4));
  EXPECT_THAT(oracle.having(""), ElementsAre(1, 3, 4));
  EXPECT_THAT(oracle.ofType("Button"), ElementsAre(0, 1));
  EXPECT_THAT(oracle.ofType("Any"), ElementsAre(0, 1, 2, 3, 4));
  EXPECT_THAT(oracle.inState({0, 1, 2}, /*isEnabled=*/true), ElementsAre(1, 2));
  EXPECT_THAT(oracle.inState({0, 1, 2}, /*isEnabled=*/false), ElementsAre(0));
  EXPECT_THAT(oracle.staticTextsIn(2), ElementsAre(3));
  EXPECT_THAT(oracle.staticTextsIn(2, "GRÖ"), ElementsAre(3));
  EXPECT_THAT(oracle.staticTextsIn(2, "OK"), IsEmpty());
  EXPECT_TRUE(oracle.canFold(2));
  EXPECT_FALSE(oracle.canFold(3));
  EXPECT_EQ(oracle.middleOf("ÄÖÜß漢字かな"), "Üß漢字");
  EXPECT_EQ(oracle.middleOf("abc"), "ab");
  EXPECT_EQ(oracle.middleOf("a"), "a");
  EXPECT_EQ(oracle.inOtherCase("Größe Ω Ж 漢"), "gRÖßE ω ж 漢");
}

/// What a search finds whose n-th element, from 1, `findNth` answers, up to the first n that it has no element for.
/// More than `most` there cannot be.
Places foundBy(const std::function<XCUIElement(std::int64_t)>& findNth, std::size_t most) {
  Places places;
  try {
    while (places.size() <= most) {
      places.push_back(placeOf(findNth(static_cast<std::int64_t>(places.size()) + 1)));
    }
  } catch (const FWKTError&) {
    // There is no further one.
  }
  return places;
}

Places found(const XCUIElementQuery& query) {
  Places places;
  const std::size_t count = query.count();
  while (places.size() < count) {
    places.push_back(placeOf(query.elementBoundBy(places.size())));
  }
  return places;
}

/// A regular expression for the text and nothing else.
std::string patternFor(std::string_view text) {
  constexpr std::string_view SPECIAL = R"(\^$.|?*+()[]{})";
  std::string pattern;
  for (const char character : text) {
    pattern += SPECIAL.find(character) == SPECIAL.npos ? "" : "\\";
    pattern += character;
  }
  return pattern;
}

/// The searches of the system, on the simulated phone, find what XPath finds in the same document.
class Searches : public ::testing::TestWithParam<Page> {
 protected:
  void TearDown() override { std::cout << searches_ << " searches, " << found_ << " finds\n"; }

  SearchOracle& oracle() { return oracle_; }
  const ShownPage& phone() const { return phone_; }

  Places foundText(TextSearch search) {
    return counted(foundBy(
        [&search](std::int64_t nth) {
          search.nthElement = nth;
          return Find::findByText(search);
        },
        oracle_.elements().size()));
  }

  Places foundClass(ClassSearch search) {
    return counted(foundBy(
        [&search](std::int64_t nth) {
          search.nthElement = nth;
          return Find::findByClass(search);
        },
        oracle_.elements().size()));
  }

  /// The pattern must be one for the text and nothing else.
  void expectExactly(const std::string& text, const std::string& pattern) {
    const Places all = oracle_.having(text);
    for (const bool isEnabled : STATES) {
      EXPECT_EQ(foundText({.selector = pattern, .nthElement = 1, .isEnabled = isEnabled, .isTextExact = true}),
                oracle_.inState(all, isEnabled))
          << "\"" << pattern << "\", enabled: " << isEnabled;
    }
  }

  Places foundElements(const XCUIElementQuery& query) { return counted(found(query)); }

  /// The needles: each text of the page, and the middle of it.
  std::vector<std::string> needles() {
    std::vector<std::string> needles{NOWHERE};
    for (const std::string& text : oracle_.texts()) {
      needles.push_back(text);
      needles.push_back(oracle_.middleOf(text));
    }
    std::sort(needles.begin(), needles.end());
    needles.erase(std::unique(needles.begin(), needles.end()), needles.end());
    return needles;
  }

  std::vector<std::string> needlesOfTheAlphabets() {
    std::vector<std::string> needles = this->needles();
    std::erase_if(needles, [](const std::string& needle) { return !areAllTheAlphabets(needle); });
    return needles;
  }

  /// What was found without what may have been found by letters that the oracle cannot fold.
  Places withoutUndecided(Places places, const Places& expected) const {
    std::erase_if(places, [&](std::size_t place) {
      return !oracle_.canFold(place) && !std::binary_search(expected.begin(), expected.end(), place);
    });
    return places;
  }

 private:
  Places counted(Places places) {
    ++searches_;
    found_ += places.size();
    return places;
  }

  SearchOracle oracle_{GetParam().source};
  ShownPage phone_{GetParam().source, Frames::places};
  std::size_t searches_ = 0;
  std::size_t found_ = 0;
};

TEST_P(Searches, SeeTheElementsWithTheirLabelsAndIdentifiers) {
  const std::vector<ElementFacts>& elements = oracle().elements();
  ASSERT_EQ(phone().application().descendants(ElementType::any).count(), elements.size());
  for (std::size_t place = 0; place < elements.size(); ++place) {
    const XCUIElement element = phone().element(place);
    EXPECT_EQ(placeOf(element), place);
    EXPECT_EQ(element.label(), elements[place].label) << place;
    EXPECT_EQ(element.identifier(), elements[place].identifier) << place;
  }
}

TEST_P(Searches, ForTextThatIsContainedInAnyCase) {
  for (const std::string& needle : needlesOfTheAlphabets()) {
    const Places all = oracle().containing(needle);
    for (const bool isEnabled : STATES) {
      const Places expected = oracle().inState(all, isEnabled);
      for (const std::string& written : {needle, oracle().inOtherCase(needle)}) {
        const TextSearch search{.selector = written, .nthElement = 1, .isEnabled = isEnabled, .isTextExact = false};
        EXPECT_EQ(withoutUndecided(foundText(search), expected), expected)
            << "\"" << written << "\", enabled: " << isEnabled;
      }
    }
  }
}

TEST_P(Searches, ForExactText) {
  std::vector<std::string> texts = needles();
  texts.emplace_back("");
  for (const std::string& text : texts) {
    expectExactly(text, patternFor(text));
  }
}

// The phone need not match a pattern without special characters, it may compare.
TEST_P(Searches, ForPatternsThatHaveToBeMatched) {
  std::vector<std::string> texts = oracle().texts();
  texts.emplace_back(NOWHERE);
  for (const std::string& text : texts) {
    expectExactly(text, "(?:" + patternFor(text) + ")");
  }
}

/// The classes that scripts may name.
constexpr std::array<std::string_view, 13> CLASSES{"Button",   "Cell",        "CheckBox",   "Icon",  "Image",
                                                   "Other",    "RadioButton", "StaticText", "Table", "TextField",
                                                   "TextView", "WebView",     "Window"};

TEST_P(Searches, ForClasses) {
  for (const std::string_view name : CLASSES) {
    for (const bool isEnabled : STATES) {
      EXPECT_EQ(foundClass({.selector = name, .nthElement = 1, .isEnabled = isEnabled}),
                oracle().inState(oracle().ofType(std::string(name)), isEnabled))
          << name << ", enabled: " << isEnabled;
    }
  }
}

TEST_P(Searches, ForAllTypes) {
  const std::vector<std::string> types = oracle().types();
  ASSERT_THAT(types, Not(IsEmpty()));
  for (const std::string& name : types) {
    const std::optional<ElementType> type = elementTypeNamed(name);
    ASSERT_TRUE(type) << name;
    for (const bool isEnabled : STATES) {
      const XCUIElementQuery query = phone().application().descendants(*type);
      EXPECT_EQ(foundElements(query.matching(NSPredicate("enabled == %@", {isEnabled}))),
                oracle().inState(oracle().ofType(name), isEnabled))
          << name << ", enabled: " << isEnabled;
    }
  }
}

TEST_P(Searches, ForStaticTextsWithinAnElement) {
  for (std::size_t place = 0; place < oracle().elements().size(); ++place) {
    const XCUIElement element = phone().element(place);
    const Places all = oracle().staticTextsIn(place);
    EXPECT_EQ(foundElements(element.staticTexts()), all) << place;
    EXPECT_FALSE(labelContains(element, NOWHERE)) << place;
    const std::string text = all.empty() ? "" : oracle().middleOf(oracle().elements()[all.back()].label);
    if (!text.empty() && areAllTheAlphabets(text)) {
      const Places expected = oracle().staticTextsIn(place, text);
      const NSPredicate predicate("label CONTAINS[c] %@", {oracle().inOtherCase(text)});
      EXPECT_EQ(withoutUndecided(foundElements(element.staticTexts().matching(predicate)), expected), expected)
          << place << ", \"" << text << "\"";
      EXPECT_TRUE(labelContains(element, text)) << place << ", \"" << text << "\"";
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Own, Searches, ::testing::ValuesIn(ownPages()));
// CTest asks for each of these by its name: see Captures.cmake.
INSTANTIATE_TEST_SUITE_P(Captures, Searches, ::testing::ValuesIn(capturedPages()), ::testing::PrintToStringParamName());

}  // namespace
}  // namespace quobrak::oracles
