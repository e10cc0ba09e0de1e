#include "quobrakUITests/ScriptVariables.h"

#include <gtest/gtest.h>

namespace quobrak {
namespace {

constexpr const char* SMILE = "\xF0\x9F\x98\x80";

std::string nameIn(const std::optional<VariableReference>& reference) {
  return reference ? std::string(reference->name()) : "none";
}

TEST(ScriptVariables, AreReferredToByNamesInBraces) {
  EXPECT_EQ(nameIn(firstReference("a,${A_1}${B}")), "A_1");
  EXPECT_EQ(nameIn(firstReference("${größe}")), "größe");
  EXPECT_EQ(nameIn(firstReference("${${A}}")), "A");
  for (const char* line : {"", "$A", "${}", "${a-b}", "${ A }", "${A", "{A}"}) {
    EXPECT_EQ(nameIn(firstReference(line)), "none") << line;
  }
}

TEST(ScriptVariables, AreReferredToByAPartOfTheLine) {
  const std::string line = "a,${A}";
  EXPECT_EQ(firstReference(line)->text, "${A}");
  EXPECT_EQ(firstReference(line)->text.data(), line.data() + 2);
}

TEST(ScriptVariables, BehindCharactersOfSeveralPartsAreNotReplaced) {
  const std::string line = std::string(SMILE) + "${A}";
  EXPECT_EQ(nameIn(firstReference(line)), "none");
  EXPECT_EQ(nameIn(firstReferenceAnywhere(line)), "A");
  EXPECT_EQ(nameIn(firstReference(line + ".")), "A");
}

TEST(ScriptVariables, AreWorthASearchWhereABraceOpens) {
  EXPECT_TRUE(mayHaveReference("a${"));
  EXPECT_FALSE(mayHaveReference("$ {A}"));
}

TEST(ScriptVariables, ThatAreMissingAreNamed) {
  EXPECT_EQ(missingVariableCause("A"), "You need to pass the extra parameter A to your test");
}

}  // namespace
}  // namespace quobrak
