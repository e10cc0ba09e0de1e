#include "drivers/simulator/PredicateSearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "drivers/simulator/ElementAttributes.h"
#include "platform/foundation/NSRegularExpression.h"
#include "platform/foundation/PredicateEvaluator.h"

namespace quobrak::simulator {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

const std::function<bool(const Element&)> IS_HITTABLE = [](const Element& element) { return element.number % 2 == 0; };

PlaceSet everyPlace(const ElementIndex& index) {
  PlaceSet places = index.noPlace();
  places.insert(0, index.size());
  return places;
}

std::vector<std::size_t> placesOf(const PlaceSet& set) {
  std::vector<std::size_t> places;
  set.forEach([&places](std::size_t place) { places.push_back(place); });
  return places;
}

/// The elements of which the evaluation of one after the other says so.
std::vector<std::size_t> placesEvaluated(const NSPredicate& predicate, const ElementIndex& index,
                                         const PlaceSet& elements) {
  const PredicateEvaluator evaluator(predicate);
  std::vector<std::size_t> places;
  elements.forEach([&](std::size_t place) {
    if (evaluator.evaluate(ElementAttributes(&index.element(place), IS_HITTABLE))) {
      places.push_back(place);
    }
  });
  return places;
}

/// Texts, predicates and trees by chance, the same ones in every run.
class Chance {
 public:
  std::size_t below(std::size_t end) { return static_cast<std::size_t>(generator_() % end); }
  bool oneIn(std::size_t count) { return below(count) == 0; }

  std::string text() {
    constexpr std::array<std::string_view, 28> PIECES{
        "a", "A",  "b", "s", "S",       "ss", "ß", "ẞ", "i", "I",        "İ",      "ı",       "\u0307", "\u0301",
        "é", "E´", "ﬁ", "F", "\u1E9E.", "ΐ",  "Σ", "ς", "👍", "👍🏽", "\u212A", "настрой", "設定",   " "};
    std::string text;
    for (std::size_t pieces = below(5); pieces > 0; --pieces) {
      text += PIECES[below(PIECES.size())];
    }
    return text;
  }

  void grow(Element& parent, std::size_t depth) {
    for (std::size_t children = below(5); children > 0; --children) {
      Element& child = parent.append(oneIn(2) ? ElementType::button : ElementType::other);
      child.label = text();
      child.identifier = oneIn(2) ? "" : text();
      if (oneIn(3)) {
        child.value = text();
      }
      if (oneIn(3)) {
        child.placeholder = text();
      }
      child.isEnabled = !oneIn(4);
      child.isSelected = oneIn(4);
      if (depth > 0) {
        grow(child, depth - 1);
      }
    }
  }

  NSPredicate predicate(std::size_t depth) {
    if (depth == 0 || oneIn(3)) {
      return comparison();
    }
    std::vector<NSPredicate> parts;
    for (std::size_t count = below(4); count > 0; --count) {
      parts.push_back(predicate(depth - 1));
    }
    switch (below(3)) {
      case 0:
        return NSCompoundPredicate::andPredicate(std::move(parts));
      case 1:
        return NSCompoundPredicate::orPredicate(std::move(parts));
      default:
        return NSCompoundPredicate::notPredicate(predicate(depth - 1));
    }
  }

 private:
  NSPredicate comparison() {
    constexpr std::array<std::string_view, 6> OPERATORS{"==",          "==[c]",   "CONTAINS",
                                                        "CONTAINS[c]", "MATCHES", "MATCHES[c]"};
    const std::string op = " " + std::string(OPERATORS[below(OPERATORS.size())]) + " ";
    if (oneIn(6)) {
      return NSPredicate(truthKey() + " == %@", {oneIn(2)});
    }
    if (oneIn(12)) {
      return NSPredicate("%@" + op + textKey(), {text()});
    }
    if (oneIn(12)) {
      return NSPredicate((oneIn(2) ? textKey() : truthKey()) + op + (oneIn(2) ? textKey() : truthKey()));
    }
    if (oneIn(12)) {
      return NSPredicate((oneIn(2) ? textKey() : truthKey()) + op + "%@", {oneIn(2)});
    }
    if (oneIn(12)) {
      return NSPredicate(textKey() + (oneIn(2) ? " MATCHES %@" : " MATCHES[c] %@"), {text() + ".*" + text()});
    }
    return NSPredicate(textKey() + op + "%@", {text()});
  }

  std::string textKey() {
    constexpr std::array<std::string_view, 4> KEYS{"label", "identifier", "placeholderValue", "value"};
    return std::string(KEYS[below(KEYS.size())]);
  }

  std::string truthKey() {
    constexpr std::array<std::string_view, 4> KEYS{"enabled", "selected", "exists", "hittable"};
    return std::string(KEYS[below(KEYS.size())]);
  }

  std::mt19937 generator_{1};
};

TEST(PredicateSearch, FindsWhatTheEvaluationOfOneElementAfterTheOtherFinds) {
  Chance chance;
  std::size_t matches = 0;
  for (int tree = 0; tree < 100; ++tree) {
    Element root(ElementType::application);
    root.label = chance.text();
    chance.grow(root, 3);
    const ElementIndex index(root);
    PlaceSet some = index.noPlace();
    some.insert(chance.below(index.size()), index.size());
    for (int question = 0; question < 50; ++question) {
      const NSPredicate predicate = chance.predicate(2);
      const PlaceSet& elements = question % 2 == 0 ? everyPlace(index) : some;
      const std::vector<std::size_t> expected = placesEvaluated(predicate, index, elements);
      ASSERT_EQ(placesOf(PredicateSearch(predicate, IS_HITTABLE).matches(index, elements)), expected)
          << predicate.predicateFormat();
      matches += expected.size();
    }
  }
  EXPECT_GT(matches, 10'000) << "the texts are so different that next to nothing was compared";
}

class PredicateSearchTest : public ::testing::Test {
 protected:
  PredicateSearchTest() {
    const std::array<std::string_view, 4> labels{"Straße", "", "straSSe 5", "(a+)+$"};
    for (const std::string_view label : labels) {
      root_.append(ElementType::button).label = label;
    }
  }

  std::vector<std::size_t> matches(const NSPredicate& predicate) const {
    const ElementIndex index(root_);
    return placesOf(PredicateSearch(predicate, IS_HITTABLE).matches(index, everyPlace(index)));
  }

  Element root_{ElementType::application};
};

TEST_F(PredicateSearchTest, AnEmptyNeedleIsContainedNowhere) {
  EXPECT_THAT(matches(NSPredicate("label CONTAINS ''")), IsEmpty());
  EXPECT_THAT(matches(NSPredicate("label CONTAINS[c] ''")), IsEmpty());
  EXPECT_THAT(matches(NSPredicate("label MATCHES ''")), ElementsAre(0, 2));
  EXPECT_THAT(matches(NSPredicate("value == ''")), IsEmpty());
}

TEST_F(PredicateSearchTest, APatternThatDoesNotCompileIsRefusedAtConstruction) {
  EXPECT_THAT([] { PredicateSearch(NSPredicate("FALSEPREDICATE AND label MATCHES 'a('"), IS_HITTABLE); },
              ThrowsMessage<RegularExpressionError>(
                  "the regular expression \"a(\" cannot be read: a parenthesis has no partner, at character 2"));
}

TEST_F(PredicateSearchTest, APatternThatBacktracksForEverIsGivenUp) {
  root_.append(ElementType::button).label = std::string(40, 'a') + "b";
  EXPECT_THAT([&] { matches(NSPredicate("label MATCHES '(a+)+$'")); },
              ThrowsMessage<RegularExpressionError>(
                  "the regular expression \"(a+)+$\" was given up: it takes too long on this text"));
}

TEST_F(PredicateSearchTest, NoElementIsAskedFurtherThanNeeded) {
  for (const std::string_view format : {"FALSEPREDICATE AND unknown == 'x'", "TRUEPREDICATE OR unknown == 'x'",
                                        "label == 'nobody' AND unknown == 'x'", "exists == TRUE OR unknown == 'x'"}) {
    EXPECT_NO_THROW(matches(NSPredicate(format))) << format;
  }
  for (const std::string_view format : {"unknown == 'x' AND FALSEPREDICATE", "label == '' AND unknown == 'x'",
                                        "label == '' OR unknown == 'x'", "NOT unknown CONTAINS 'x'"}) {
    EXPECT_THROW(matches(NSPredicate(format)), UnknownAttributeError) << format;
  }
}

TEST_F(PredicateSearchTest, AmongNoElementsNothingIsAsked) {
  const ElementIndex index(root_);
  const PredicateSearch search(NSPredicate("unknown == 'x'"), IS_HITTABLE);
  EXPECT_EQ(search.matches(index, index.noPlace()), index.noPlace());
}

TEST_F(PredicateSearchTest, ServesForManyTrees) {
  PredicateSearch first(NSPredicate("label CONTAINS[c] 'STRASSE'"), IS_HITTABLE);
  const PredicateSearch search = std::move(first);
  const ElementIndex index(root_);
  EXPECT_THAT(placesOf(search.matches(index, everyPlace(index))), ElementsAre(1, 3));
  root_.label = "Straße";
  const ElementIndex changed(root_);
  EXPECT_THAT(placesOf(search.matches(changed, everyPlace(changed))), ElementsAre(0, 1, 3));
}

}  // namespace
}  // namespace quobrak::simulator
