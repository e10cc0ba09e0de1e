#include "platform/foundation/PredicateEvaluator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/foundation/NSRegularExpression.h"

namespace quobrak {
namespace {

using testing::ThrowsMessage;

/// An element with a few attributes; `value` and `hint` are known and have no value.
class Element final : public KeyValueSource {
 public:
  Element(std::initializer_list<std::pair<const std::string, Value>> values = {}) : values_(values) {
    values_.try_emplace("value");
    values_.try_emplace("hint");
  }

  Value valueForKey(std::string_view key) const override {
    const auto found = values_.find(key);
    if (found == values_.end()) {
      throw std::out_of_range("unknown key " + std::string(key));
    }
    return found->second;
  }

 private:
  std::map<std::string, Value, std::less<>> values_;
};

bool holds(std::string_view format, const Element& element) {
  return PredicateEvaluator(NSPredicate(format)).evaluate(element);
}

/// Formats, and whether they hold.
using Table = std::vector<std::pair<std::string_view, bool>>;

void expectTable(const Element& element, const Table& table) {
  for (const auto& [format, expected] : table) {
    EXPECT_EQ(holds(format, element), expected) << format;
  }
}

TEST(PredicateEvaluator, EqualityOfTexts) {
  const Table table = {
      {R"(label == "Straße")", true},
      {R"("Straße" == label)", true},
      {R"(label == "straße")", false},
      {R"(label == "Straß")", false},
      {R"(label ==[c] "STRASSE")", true},
      {R"("STRAẞE" ==[c] label)", true},
      {R"(label ==[c] "STRASE")", false},
      {R"(label ==[c] title)", true},
      {R"(label == title)", false},
      {R"(label == label)", true},
      {R"("a" == "a")", true},
      {R"("a" ==[c] "A")", true},
      {R"(empty == "")", true},
      {R"(empty ==[c] "")", true},
      {R"(umlaut == "a\u0308")", false},  // the same to the eye, and other code points
  };
  expectTable(Element{{"label", "Straße"}, {"title", "STRASSE"}, {"empty", ""}, {"umlaut", "ä"}}, table);
}

TEST(PredicateEvaluator, EqualityOfTruthValuesAndOfValuesOfDifferentKinds) {
  const Table table = {
      {"enabled == TRUE", true},      {"enabled == NO", false},    {"FALSE == selected", true},
      {"enabled == selected", false}, {"enabled ==[c] YES", true}, {"enabled == \"TRUE\"", false},
      {"label == TRUE", false},       {"label ==[c] TRUE", false}, {"label == enabled", false},
  };
  expectTable(Element{{"enabled", true}, {"selected", false}, {"label", "TRUE"}}, table);
}

TEST(PredicateEvaluator, MissingValueEqualsOnlyAnotherMissingValue) {
  const Table table = {
      {"value == hint", true},         {"value ==[c] hint", true},
      {"value == \"\"", false},        {"value ==[c] \"\"", false},
      {"label == value", false},       {"value == FALSE", false},
      {"enabled == value", false},     {"value CONTAINS \"\"", false},
      {"value CONTAINS hint", false},  {"label CONTAINS[c] value", false},
      {"value MATCHES \".*\"", false}, {"value MATCHES \"\"", false},
      {"label MATCHES value", false},
  };
  expectTable(Element{{"label", ""}, {"enabled", false}}, table);
}

TEST(PredicateEvaluator, Containment) {
  const Table table = {
      {R"(label CONTAINS "Straße")", true},     {R"(label CONTAINS "straße")", false},
      {R"(label CONTAINS[c] "STRASSE")", true}, {R"(label CONTAINS "")", false},
      {R"(label CONTAINS[c] "")", false},       {R"(label CONTAINS part)", false},
      {R"(label CONTAINS[c] part)", true},      {R"("Extra" CONTAINS part)", false},
      {R"("extra stra" CONTAINS part)", true},  {R"("EXTRA STRA" CONTAINS[c] part)", true},
      {R"(city CONTAINS[c] "i")", false},       {R"(city CONTAINS[c] "STAN")", true},
      {R"(enabled CONTAINS "TRUE")", false},    {R"("TRUE" CONTAINS TRUE)", false},
  };
  expectTable(Element{{"label", "Große Straße"}, {"part", "stra"}, {"city", "İstanbul"}, {"enabled", true}}, table);
}

TEST(PredicateEvaluator, MatchIsOfTheWholeText) {
  const Table table = {
      {R"(label MATCHES "Item \\d+")", true},  {R"(label MATCHES "\\d+")", false},
      {R"(label MATCHES "item \\d+")", false}, {R"(label MATCHES[c] "ITEM \\d+")", true},
      {R"(label MATCHES pattern)", false},     {R"(label MATCHES[c] pattern)", true},
      {R"("item 7" MATCHES pattern)", true},   {R"(word MATCHES "Straße")", true},
      {R"(word MATCHES "straße")", false},     {R"(word MATCHES "Straß")", false},
      {R"(word MATCHES[c] "STRASSE")", true},  {R"(word MATCHES[c] "STRAS")", false},
      {R"(word MATCHES[c] "s.*e")", true},     {R"(word MATCHES word)", true},
      {R"(word MATCHES "")", false},           {R"("" MATCHES "")", true},
      {R"(enabled MATCHES ".*")", false},      {R"("TRUE" MATCHES TRUE)", false},
      {R"("TRUE" MATCHES enabled)", false},
  };
  expectTable(Element{{"label", "Item 42"}, {"word", "Straße"}, {"pattern", "item \\d+"}, {"enabled", true}}, table);
}

TEST(PredicateEvaluator, EverySpecialCharacterMakesARegularExpressionOfAPattern) {
  const Table table = {
      {R"("a" MATCHES "\\x61")", true}, {R"("a" MATCHES "^a")", true},   {R"("a" MATCHES "a$")", true},
      {R"("a" MATCHES ".")", true},     {R"("a" MATCHES "b|a")", true},  {R"("a" MATCHES "ab?")", true},
      {R"("a" MATCHES "ab*")", true},   {R"("a" MATCHES "a+")", true},   {"'a' MATCHES '(a)'", true},
      {R"("a" MATCHES "[a]")", true},   {R"("a" MATCHES "a{1}")", true},
  };
  expectTable(Element{}, table);
  for (const char* unbalanced : {"a)", "a(", "[a", "a{", "a}"}) {
    EXPECT_THROW(PredicateEvaluator(NSPredicate("label MATCHES %@", {unbalanced})), RegularExpressionError)
        << unbalanced;
  }
}

TEST(PredicateEvaluator, APatternWithoutSpecialCharactersMatchesOnlyItself) {
  for (const char* const pattern : {"", "Check out", "Größe: 5 cm, #1-2 & more", "👍"}) {
    EXPECT_TRUE(matchesOnlyItself(pattern)) << pattern;
  }
  for (const char special : std::string_view(R"(\^$.|?*+()[]{})")) {
    EXPECT_FALSE(matchesOnlyItself("a" + std::string(1, special))) << special;
  }
}

TEST(PredicateEvaluator, BeginningsEndingsAndWildcards) {
  const Table table = {
      {R"(label BEGINSWITH "Item")", true},
      {R"(label BEGINSWITH "item")", false},
      {R"(label BEGINSWITH[c] "item")", true},
      {R"(label BEGINSWITH "tem")", false},
      {R"(label BEGINSWITH "Item (4.2)\nX")", true},
      {R"(label BEGINSWITH "Item (4.2)\nXY")", false},
      {R"(label ENDSWITH ")\nX")", true},
      {R"(label ENDSWITH "4.2")", false},
      {R"(label ENDSWITH[c] "x")", true},
      {R"(label BEGINSWITH "Item .4")", false},
      {R"(label LIKE "Item*")", true},
      {R"(label LIKE "Item")", false},
      {R"(label LIKE[c] "*(?.?)*x")", true},
      {R"(label LIKE "Item (?)*")", false},
      {R"(label LIKE "Item (4.2)?X")", true},
      {R"(umlaut LIKE "a?b")", true},
      {R"("a*b" LIKE "a\\*b")", true},
      {R"("axb" LIKE "a\\*b")", false},
      {R"(value BEGINSWITH "x")", false},
      {R"(value LIKE "*")", false},
      {R"("a#b-c&d" LIKE "a#b-c&d")", true},
  };
  expectTable(Element{{"label", "Item (4.2)\nX"}, {"umlaut", "aüb"}}, table);
}

TEST(PredicateEvaluator, InequalityAndMembership) {
  const Table table = {
      {R"(label != "x")", true},    {R"(label != "Item")", false}, {R"(label !=[c] "ITEM")", false},
      {R"(value != "x")", true},    {"value != hint", false},      {R"(label IN {"x", "Item"})", true},
      {R"(label IN {"x"})", false}, {R"(label IN {})", false},     {R"(label IN[c] {"ITEM"})", true},
      {R"("te" IN label)", true},   {"enabled == 1", true},        {"enabled != 1", false},
      {"enabled == 0", false},
  };
  expectTable(Element{{"label", "Item"}, {"enabled", true}}, table);
}

TEST(PredicateEvaluator, Junctions) {
  const Table table = {
      {"a == YES AND b == NO", true},
      {"a == YES AND b == YES", false},
      {"a == NO OR b == NO", true},
      {"a == NO OR b == YES", false},
      {"NOT a == NO", true},
      {"NOT (a == YES OR b == YES)", false},
      {"a == YES OR a == YES AND b == YES", true},
      {"(a == YES OR a == YES) AND b == YES", false},
      {"TRUEPREDICATE", true},
      {"FALSEPREDICATE", false},
      {"NOT FALSEPREDICATE AND NOT NOT TRUEPREDICATE", true},
  };
  expectTable(Element{{"a", true}, {"b", false}}, table);
}

TEST(PredicateEvaluator, JunctionAsksNoFurtherThanNeeded) {
  EXPECT_FALSE(holds("FALSEPREDICATE AND unknown == 'x'", Element{}));
  EXPECT_TRUE(holds("TRUEPREDICATE OR unknown == 'x'", Element{}));
}

TEST(PredicateEvaluator, UnknownKeyRaisesTheErrorOfTheSource) {
  for (const char* format : {"unknown == 'x'", "'x' == unknown", "NOT unknown CONTAINS 'x'", "label.x MATCHES '.'"}) {
    EXPECT_THROW(holds(format, Element{}), std::out_of_range) << format;
  }
  EXPECT_THAT([] { holds("value CONTAINS a.b", Element{}); }, ThrowsMessage<std::out_of_range>("unknown key a.b"));
}

TEST(PredicateEvaluator, ServesForManySources) {
  PredicateEvaluator first(NSPredicate(R"(label CONTAINS[c] "ß" AND label MATCHES "\\w+")"));
  const PredicateEvaluator evaluator = std::move(first);
  EXPECT_TRUE(evaluator.evaluate(Element{{"label", "STRASSE"}}));
  EXPECT_FALSE(evaluator.evaluate(Element{{"label", "Weg"}}));
  EXPECT_FALSE(evaluator.evaluate(Element{{"label", "Große Straße"}}));
  EXPECT_TRUE(evaluator.evaluate(Element{{"label", "Straße"}}));
}

TEST(PredicateEvaluator, LiteralPatternThatDoesNotCompileIsRefusedAtConstruction) {
  EXPECT_THAT([] { PredicateEvaluator(NSPredicate("FALSEPREDICATE AND label MATCHES 'a('")); },
              ThrowsMessage<RegularExpressionError>(
                  "the regular expression \"a(\" cannot be read: a parenthesis has no partner, at character 2"));
  EXPECT_THAT([] { PredicateEvaluator(NSPredicate("label MATCHES[c] 'a('")); },
              ThrowsMessage<RegularExpressionError>(
                  "the regular expression \"(?i)a(\" cannot be read: a parenthesis has no partner, at character 6"));
}

TEST(PredicateEvaluator, PatternOfTheSourceThatDoesNotCompileIsRefusedAtEvaluation) {
  const PredicateEvaluator evaluator(NSPredicate("'x' MATCHES label"));
  EXPECT_THAT(
      [&evaluator] {
        evaluator.evaluate(Element{{"label", "a("}});
      },
      ThrowsMessage<RegularExpressionError>(
          "the regular expression \"a(\" cannot be read: a parenthesis has no partner, at character 2"));
}

TEST(PredicateEvaluator, PatternThatBacktracksForEverIsGivenUp) {
  const std::string text = std::string(40, 'a') + "b";
  EXPECT_THAT(
      [&text] {
        holds("label MATCHES '(a+)+$'", Element{{"label", std::string_view(text)}});
      },
      ThrowsMessage<RegularExpressionError>(
          "the regular expression \"(a+)+$\" was given up: it takes too long on this text"));
}

}  // namespace
}  // namespace quobrak
