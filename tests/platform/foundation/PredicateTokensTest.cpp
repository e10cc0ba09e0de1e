#include "platform/foundation/PredicateTokens.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/foundation/NSPredicate.h"

namespace quobrak {
namespace {

using testing::ElementsAre;
using Kind = PredicateToken::Kind;

std::vector<PredicateToken> tokensOf(const PredicateFormat& format) {
  std::vector<PredicateToken> tokens;
  std::size_t position = 0;
  do {
    tokens.push_back(predicateTokenAt(format, position));
    position = tokens.back().position + tokens.back().source.size();
  } while (tokens.back().kind != Kind::end);
  return tokens;
}

std::vector<std::string> sourcesOf(const std::string& text) {
  std::vector<std::string> sources;
  for (const PredicateToken& token : tokensOf(PredicateFormat(text))) {
    sources.emplace_back(token.source);
  }
  return sources;
}

TEST(PredicateTokens, SymbolsNeedNoBlanksAroundThem) {
  EXPECT_THAT(sourcesOf("(a==%@&&!b.c=\"x\")||d"),
              ElementsAre("(", "a", "==", "%@", "&&", "!", "b.c", "=", "\"x\"", ")", "||", "d", ""));
}

TEST(PredicateTokens, AnOptionIsOneToken) {
  EXPECT_THAT(sourcesOf("label CONTAINS[c] 'x'"), ElementsAre("label", "CONTAINS", "[c]", "'x'", ""));
}

TEST(PredicateTokens, ATextLiteralStandsForItsTextWithoutQuotesAndEscapes) {
  const PredicateToken token = predicateTokenAt(PredicateFormat(R"( "a\"\u00E9" )"), 0);
  EXPECT_EQ(token.kind, Kind::text);
  EXPECT_EQ(token.position, 1U);
  EXPECT_EQ(token.text, "a\"é");
}

TEST(PredicateTokens, WhatWasFoundIsToldInWords) {
  EXPECT_EQ(predicateTokenAt(PredicateFormat("  "), 0).found(), "the end");
  EXPECT_EQ(predicateTokenAt(PredicateFormat("LIKE"), 0).found(), "\"LIKE\"");
  EXPECT_EQ(predicateTokenAt(PredicateFormat("'x'"), 0).found(), "'x'");
}

TEST(PredicateFormat, ColumnsCountUserPerceivedCharacters) {
  EXPECT_EQ(PredicateFormat("é👍🏽x").column(std::string("é👍🏽").size()), 3U);
}

TEST(PredicateFormat, AFaultNamesItsPlaceAndTheFormat) {
  EXPECT_THAT([] { PredicateFormat("label").fail(5, "an operator", "the end"); },
              testing::ThrowsMessage<PredicateFormatError>(
                  "column 6: expected an operator, found the end in the predicate format: label"));
}

}  // namespace
}  // namespace quobrak
