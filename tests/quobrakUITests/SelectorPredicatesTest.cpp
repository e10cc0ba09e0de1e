#include "quobrakUITests/SelectorPredicates.h"

#include <gtest/gtest.h>

namespace quobrak {
namespace {

TEST(SelectorPredicates, AnyTextIsALabelAnIdentifierOrAPlaceholderOfAnElementInTheState) {
  EXPECT_EQ(anyTextPredicate({.text = "it's \"x\"", .isExact = false}, true).predicateFormat(),
            R"(label CONTAINS[c] "it's \"x\"" AND enabled == TRUE OR )"
            R"(identifier CONTAINS[c] "it's \"x\"" AND enabled == TRUE OR )"
            R"(placeholderValue CONTAINS[c] "it's \"x\"" AND enabled == TRUE)");
  EXPECT_EQ(anyTextPredicate({.text = "\\d+", .isExact = true}, false).predicateFormat(),
            R"(label MATCHES "\\d+" AND enabled == FALSE OR )"
            R"(identifier MATCHES "\\d+" AND enabled == FALSE OR )"
            R"(placeholderValue MATCHES "\\d+" AND enabled == FALSE)");
}

TEST(SelectorPredicates, AnAttributeIsComparedInAnyState) {
  EXPECT_EQ(attributePredicate("label", {.text = "%@", .isExact = false}).predicateFormat(),
            R"(label CONTAINS[c] "%@")");
  EXPECT_EQ(attributePredicate("identifier", {.text = "a.c", .isExact = true}).predicateFormat(),
            R"(identifier MATCHES "a.c")");
}

TEST(SelectorPredicates, AStateIsThatOfBeingEnabled) {
  EXPECT_EQ(statePredicate(true).predicateFormat(), "enabled == TRUE");
  EXPECT_EQ(statePredicate(false).predicateFormat(), "enabled == FALSE");
}

}  // namespace
}  // namespace quobrak
