#include "drivers/xctest/PredicateFault.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace quobrak::xctest {
namespace {

const std::string UNKNOWN =
    "; they have label, identifier, placeholderValue, value, enabled, selected, exists, hittable";

TEST(PredicateFault, NamesAnAttributeThatElementsDoNotHaveOrAPatternThatDoesNotCompile) {
  struct Case {
    const char* format;
    std::optional<std::string> fault;
  };
  const std::vector<Case> cases = {
      {"label == 'a' AND identifier CONTAINS[c] 'b'", std::nullopt},
      {"placeholderValue MATCHES 'a+' OR value == 'x'", std::nullopt},
      {"enabled == TRUE AND selected == FALSE AND exists == TRUE AND NOT hittable == TRUE", std::nullopt},
      {"TRUEPREDICATE", std::nullopt},
      {"label MATCHES identifier", std::nullopt},
      {"title == 'a'", "elements have no attribute \"title\"" + UNKNOWN},
      {"'a' == title", "elements have no attribute \"title\"" + UNKNOWN},
      {"label == 'a' OR (enabled == TRUE AND NOT hasFocus == TRUE)",
       "elements have no attribute \"hasFocus\"" + UNKNOWN},
      {"isEnabled == TRUE", "elements have no attribute \"isEnabled\"" + UNKNOWN},
      {"FALSEPREDICATE AND label MATCHES 'a('",
       "the regular expression \"a(\" cannot be read: a parenthesis has no partner, at character 2"},
      {"label MATCHES[c] '['",
       "the regular expression \"[\" cannot be read: a bracket expression has no closing bracket, at character 1"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(predicateFault(NSPredicate(c.format)), c.fault) << c.format;
  }
}

TEST(PredicateFault, KnowsWhatAPredicateAsksFor) {
  EXPECT_TRUE(asksFor(NSPredicate("label == 'a' OR NOT (enabled == TRUE AND hittable == TRUE)"), "hittable"));
  EXPECT_TRUE(asksFor(NSPredicate("TRUE == hittable"), "hittable"));
  EXPECT_FALSE(asksFor(NSPredicate("label == 'hittable' AND exists == TRUE"), "hittable"));
  EXPECT_FALSE(asksFor(NSCompoundPredicate::andPredicate({}), "hittable"));
}

TEST(PredicateFault, TellsTruthValuesFromTexts) {
  for (const char* const truth : {"enabled", "selected", "exists", "hittable"}) {
    EXPECT_TRUE(isTruthAttribute(truth)) << truth;
  }
  for (const char* const text : {"label", "identifier", "placeholderValue", "value"}) {
    EXPECT_FALSE(isTruthAttribute(text)) << text;
  }
}

}  // namespace
}  // namespace quobrak::xctest
