#include "platform/foundation/NSRegularExpression.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

// What all implementations promise is tried in tests/platform/foundation; here is what is this one's own.

namespace quobrak {
namespace {

using ::testing::ThrowsMessage;

TEST(NSRegularExpressionOnFoundation, NamesThePatternThatDoesNotCompile) {
  for (const std::string pattern : {"a(", "[a", "*a", "a{2,1}", "x\\1", "a)|(b"}) {
    EXPECT_THAT([&pattern] { NSRegularExpression{pattern}; },
                ThrowsMessage<RegularExpressionError>("the regular expression \"" + pattern + "\" cannot be read"));
  }
}

TEST(NSRegularExpressionOnFoundation, WhatAPatternLeavesOpenDoesNotSwallowTheEndOfTheText) {
  struct Case {
    std::string pattern;
    std::string text;
    bool isMatch;
  };
  const std::vector<Case> cases = {
      {"(?x) a b # comment", "ab", true},
      {"(?x) a b # comment", "abc", false},
      {"\\Qa.b", "a.b", true},
      {"\\Qa.b", "axb", false},
      {"\\Qa.b", "a.bc", false},
      {"(?i)A", "a", true},
      {"(a)\\1", "aa", true},
      {"(?<x>a)\\k<x>", "aa", true},
      {"a$|ab", "ab", true},
      {"a\n", "a\n", true},
      {"a\n", "a", false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(NSRegularExpression(c.pattern).matchesWhole(c.text), c.isMatch) << c.pattern << " / " << c.text;
  }
}

TEST(NSRegularExpressionOnFoundation, IllFormedBytesCountAsOneCharacter) {
  EXPECT_EQ(NSRegularExpression("b").firstMatch("a\xFF"
                                                "b",
                                                3),
            "b");
  EXPECT_EQ(NSRegularExpression("b").firstMatch("a\xFF"
                                                "b",
                                                2),
            std::nullopt);
  EXPECT_EQ(NSRegularExpression("\uFFFD").firstMatch("a\xE2\x82z", 9), "\xE2\x82");
}

}  // namespace
}  // namespace quobrak
