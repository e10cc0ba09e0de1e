#include "quobrakUITests/Replacing.h"

#include <gtest/gtest.h>

#include <vector>

namespace quobrak {
namespace {

TEST(Replacing, Occurrences) {
  struct Row {
    std::string_view text;
    std::string_view target;
    std::string_view replacement;
    std::string_view expected;
  };
  constexpr Row ROWS[] = {
      {"", "a", "b", ""},
      {"a", "a", "", ""},
      {"xax", "a", "bc", "xbcx"},
      {"aXbX", "X", "", "ab"},
      {"aaa", "aa", "b", "ba"},
      {"/Documents/a/Documents/b", "/Documents", "", "/a/b"},
      {"/Documentsfoo/DocumentsBar", "/Documents", "", "fooBar"},
      {"/documents/a", "/Documents", "", "/documents/a"},
      {"a", "aa", "b", "a"},
      {"été", "é", "🙂", "🙂t🙂"},
  };
  for (const auto& [text, target, replacement, expected] : ROWS) {
    EXPECT_EQ(replacingOccurrences(text, target, replacement), expected) << text;
  }
}

TEST(Replacing, OccurrencesAreVisitedFromLeftToRightWithoutOverlap) {
  std::vector<std::size_t> places;
  forEachOccurrence("aaxaaa", "aa", [&places](std::size_t at) { places.push_back(at); });
  EXPECT_EQ(places, (std::vector<std::size_t>{0, 3}));
}

TEST(Replacing, WhatAReplacementBringsInOrJoinsIsNotSearchedAgain) {
  EXPECT_EQ(replacingOccurrences("aa", "a", "aa"), "aaaa");
  EXPECT_EQ(replacingOccurrences("/Doc/Documentsuments/x", "/Documents", ""), "/Documents/x");
}

}  // namespace
}  // namespace quobrak
