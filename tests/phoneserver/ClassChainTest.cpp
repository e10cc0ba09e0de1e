#include "phoneserver/ClassChain.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;

/// In a form of its own, so that what was read can be compared whole.
std::string written(const std::string& chain) {
  std::string text;
  for (const ChainSegment& segment : readClassChain(chain)) {
    text += (segment.takesDescendants ? "**/" : "/") + std::string(nameOf(segment.type));
    for (const ChainPredicate& predicate : segment.predicates) {
      text += (predicate.isOfADescendant ? "{below " : "{") + predicate.predicate.predicateFormat() + "}";
    }
    text += segment.position ? "[" + std::to_string(*segment.position) + "]" : "";
  }
  return text;
}

struct Row {
  const char* chain;
  const char* read;
};

TEST(ClassChain, IsRead) {
  const Row ROWS[] = {
      {"XCUIElementTypeWindow", "/Window"},
      {"/XCUIElementTypeWindow", "/Window"},
      {"**/XCUIElementTypeButton", "**/Button"},
      {"/**/XCUIElementTypeButton", "**/Button"},
      {"*", "/Any"},
      {"**/*", "**/Any"},
      {"XCUIElementTypeAny", "/Any"},
      {"XCUIElementTypeWindow/XCUIElementTypeOther/**/XCUIElementTypeCell", "/Window/Other**/Cell"},
      {"*[2]", "/Any[2]"},
      {"*[-1]/*[3]", "/Any[-1]/Any[3]"},
      {"*[`label == 'x'`]", "/Any{label == \"x\"}"},
      {"*[$label == 'x'$]", "/Any{below label == \"x\"}"},
      {"*[`label == 'x'`][$value == 'y'$][-2]/*", "/Any{label == \"x\"}{below value == \"y\"}[-2]/Any"},
      {"*[`label == 'a``b'`]", "/Any{label == \"a`b\"}"},
      {"*[`label == 'a$b'`]", "/Any{label == \"a$b\"}"},
      {"*[$label == '$$9'$]", "/Any{below label == \"$9\"}"},
      {"*[`label == 'a/b[1]'`]/*", "/Any{label == \"a/b[1]\"}/Any"},
      {"  **/XCUIElementTypeButton  ", "**/Button"},
  };
  for (const Row& row : ROWS) {
    EXPECT_EQ(written(row.chain), row.read) << row.chain;
  }
}

TEST(ClassChain, ThatCannotBeReadIsRefusedWithThePlace) {
  const Row ROWS[] = {
      {"", "column 1: expected an element type such as XCUIElementTypeButton, or *, found the end"},
      {"Button", "column 1: expected an element type such as XCUIElementTypeButton, or *, found \"Button\""},
      {"**XCUIElementTypeButton",
       "column 2: expected \"/\" before the next element type, or the end, found "
       "\"*XCUIElementTypeButton\""},
      {"**/XCUIElementTypeNothing",
       "column 4: expected an element type such as XCUIElementTypeButton, or *, found \"XCUIElementTypeNothing\""},
      {"*/", "column 3: expected an element type such as XCUIElementTypeButton, or *, found the end"},
      {"* *", "column 3: expected \"/\" before the next element type, or the end, found \"*\""},
      {"*[0]", "column 3: expected `, $ or a position that is not 0, found \"0]\""},
      {"*[]", "column 3: expected `, $ or a position that is not 0, found \"]\""},
      {"*[99999999999]", "column 3: expected `, $ or a position that is not 0, found \"99999999999]\""},
      {"*[1", "column 4: expected ], found the end"},
      {"*[1x]", "column 4: expected ], found \"x]\""},
      {"*[1][2]", "column 6: expected nothing more in brackets behind the position, found \"2]\""},
      {"*[`label == 'x'", "column 16: expected ` to close the predicate, found the end"},
      {"*[`label == 'x'`", "column 17: expected ], found the end"},
      {"*[$label == 'é'$", "column 17: expected ], found the end"},
  };
  for (const Row& row : ROWS) {
    EXPECT_EQ(errorOf([&] { readClassChain(row.chain); }),
              "invalid selector: " + std::string(row.read) + " in the class chain: " + row.chain);
  }
}

TEST(ClassChain, WithAPredicateThatCannotBeReadIsRefusedForThePredicate) {
  EXPECT_EQ(errorOf([] { readClassChain("*[`label ==`]"); }).substr(0, 24), "unknown error: column 9:");
}

TEST(ClassChain, APredicateOnItsOwnIsRead) {
  EXPECT_EQ(readPredicate("label == 'x'").predicateFormat(), "label == \"x\"");
  EXPECT_EQ(errorOf([] { readPredicate("label"); }).substr(0, 24), "unknown error: column 6:");
}

}  // namespace
}  // namespace quobrak::phoneserver
