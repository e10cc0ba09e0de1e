#include "phoneserver/PredicateAttributes.h"

#include <gtest/gtest.h>

#include <string>

#include "phoneserver/ClassChain.h"
#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;
using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(
  <XCUIElementTypeButton name="id" label="Buy now" value="v" x="10" y="20" width="30" height="40"/>
  <XCUIElementTypeButton name="bare" x="500"/>)";

struct Row {
  const char* format;
  bool holds;
};

TEST(PredicateAttributes, AreSeenByPredicates) {
  TestPhone phone(PAGE);
  const Row ROWS[] = {
      {"name == 'id'", true},
      {"wdName == 'id'", true},
      {"label CONTAINS[c] 'BUY'", true},
      {"value MATCHES 'v|w'", true},
      {"placeholderValue CONTAINS 'x'", false},
      {"type == 'XCUIElementTypeButton'", true},
      {"enabled == TRUE AND selected == FALSE AND focused == FALSE", true},
      {"visible == TRUE AND hittable == TRUE AND accessible == TRUE", true},
      {"accessibilityContainer == TRUE", false},
  };
  for (const Row& row : ROWS) {
    EXPECT_EQ(ElementCondition(phone.served(), readPredicate(row.format)).holds(phone.element("id")), row.holds)
        << row.format;
  }
}

TEST(PredicateAttributes, AMissingTextIsEqualToNoTextAndContainsNone) {
  TestPhone phone(PAGE);
  for (const char* const format : {"label == ''", "label CONTAINS 'x'", "value == '0'", "label MATCHES '.*'"}) {
    EXPECT_FALSE(ElementCondition(phone.served(), readPredicate(format)).holds(phone.element("bare"))) << format;
  }
}

TEST(PredicateAttributes, ThatDoNotExistAreRefusedBeforeAnythingIsAsked) {
  TestPhone phone;
  EXPECT_TRUE(errorOf([&] {
                ElementCondition(phone.served(), readPredicate("TRUEPREDICATE OR NOT title == 'x'"));
              }).starts_with("unknown error: elements have no attribute \"title\""));
}

TEST(PredicateAttributes, APatternThatDoesNotCompileIsRefused) {
  TestPhone phone;
  EXPECT_TRUE(errorOf([&] {
                ElementCondition(phone.served(), readPredicate("label MATCHES '('"));
              }).starts_with("unknown error: "));
}

}  // namespace
}  // namespace quobrak::phoneserver
