#include "phoneserver/ClassChainEvaluator.h"

#include <gtest/gtest.h>

#include "tests/phoneserver/TestPhone.h"

namespace quobrak::phoneserver {
namespace {

using quobrak::testing::errorOf;
using quobrak::testing::namesOf;
using quobrak::testing::TestPhone;

constexpr const char* PAGE = R"(
  <XCUIElementTypeOther name="A">
    <XCUIElementTypeButton name="A1" label="one"/>
    <XCUIElementTypeOther name="A2">
      <XCUIElementTypeButton name="A2a" label="two"/>
      <XCUIElementTypeStaticText name="A2b" label="deep"/>
    </XCUIElementTypeOther>
    <XCUIElementTypeButton name="A3" label="three" enabled="false"/>
  </XCUIElementTypeOther>
  <XCUIElementTypeOther name="B">
    <XCUIElementTypeButton name="B1" label="one"/>
  </XCUIElementTypeOther>)";

struct Row {
  const char* chain;
  const char* names;
};

TEST(ClassChainEvaluator, FindsInTheOrderOfTheDocument) {
  TestPhone phone(PAGE);
  const Row ROWS[] = {
      {"**/XCUIElementTypeButton", "A1 A2a A3 B1"},
      {"XCUIElementTypeButton", ""},
      {"XCUIElementTypeWindow/XCUIElementTypeOther", "A B"},
      {"XCUIElementTypeWindow/*/XCUIElementTypeButton", "A1 A3 B1"},
      {"**/XCUIElementTypeOther", "A A2 B"},
      {"**/XCUIElementTypeOther/XCUIElementTypeButton", "A1 A2a A3 B1"},
      {"**/XCUIElementTypeOther/**/XCUIElementTypeButton", "A1 A2a A3 B1"},
      {"**/XCUIElementTypeApplication", ""},
      {"**/XCUIElementTypeButton[2]", "A2a"},
      {"**/XCUIElementTypeButton[-1]", "B1"},
      {"**/XCUIElementTypeButton[4]", "B1"},
      {"**/XCUIElementTypeButton[5]", ""},
      {"**/XCUIElementTypeButton[-4]", "A1"},
      {"**/XCUIElementTypeButton[-5]", ""},
      {"**/XCUIElementTypeOther[2]/*", "A2a A2b"},
      {"**/XCUIElementTypeButton[`label == 'one'`]", "A1 B1"},
      {"**/XCUIElementTypeButton[`label == 'one'`][2]", "B1"},
      {"**/XCUIElementTypeButton[`label CONTAINS 'o'`][`enabled == TRUE`]", "A1 A2a B1"},
      {"**/XCUIElementTypeOther[$label == 'deep'$]", "A A2"},
      {"**/XCUIElementTypeOther[$label == 'one'$][2]/*", "B1"},
      {"**/*[`type == 'XCUIElementTypeStaticText'`]", "A2b"},
  };
  for (const Row& row : ROWS) {
    EXPECT_EQ(namesOf(elementsOfChain(phone.scope(), readClassChain(row.chain))), row.names) << row.chain;
  }
}

TEST(ClassChainEvaluator, LooksBelowTheRootOfTheScopeOnly) {
  TestPhone phone(PAGE);
  const SearchScope scope{phone.served(), phone.element("A2"), 50};
  EXPECT_EQ(namesOf(elementsOfChain(scope, readClassChain("**/*"))), "A2a A2b");
  EXPECT_EQ(namesOf(elementsOfChain(scope, readClassChain("XCUIElementTypeButton"))), "A2a");
}

TEST(ClassChainEvaluator, DoesNotSeeWhatIsDeeperThanTheScopeGoes) {
  TestPhone phone(PAGE);
  const auto names = [&phone](int deepest) {
    return namesOf(elementsOfChain(phone.scope(deepest), readClassChain("**/XCUIElementTypeButton")));
  };
  EXPECT_EQ(names(2), "");
  EXPECT_EQ(names(3), "A1 A3 B1");
  EXPECT_EQ(names(4), "A1 A2a A3 B1");
}

TEST(ClassChainEvaluator, RefusesAnUnknownAttributeEvenWhereNothingIsAsked) {
  TestPhone phone;
  const auto chain = readClassChain("**/XCUIElementTypeButton[`identifier == 'x'`]");
  EXPECT_TRUE(errorOf([&] {
                elementsOfChain(phone.scope(), chain);
              }).starts_with("unknown error: elements have no attribute \"identifier\";"));
}

}  // namespace
}  // namespace quobrak::phoneserver
