#include "platform/foundation/NSRegularExpression.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quobrak {
namespace {

using testing::ThrowsMessage;

constexpr std::size_t WHOLE_TEXT = std::numeric_limits<std::size_t>::max();

/// Nested quantifiers on a text that fits only nearly: all the ways to divide the letters are tried.
std::string runawayText() {
  return std::string(40, 'a') + "b";
}

TEST(NSRegularExpression, FindsTheFirstMatch) {
  const NSRegularExpression variable(R"(\$\{\w+\})");
  struct Case {
    std::string_view text;
    std::optional<std::string_view> match;
  };
  const std::vector<Case> cases = {
      {"${USER_NAME}", "${USER_NAME}"},
      {"x ${größe} y ${z}", "${größe}"},
      {"日本語 ${日本語}", "${日本語}"},
      {"👍👍${a1}", "${a1}"},
      {"${a-b}", std::nullopt},
      {"${}", std::nullopt},
      {"${a", std::nullopt},
      {"$${a}}", "${a}"},
      {"", std::nullopt},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(variable.firstMatch(c.text, WHOLE_TEXT), c.match) << c.text;
  }
}

TEST(NSRegularExpression, MatchIsAPartOfTheText) {
  const std::string_view text = "ü👍 ab";
  const auto match = NSRegularExpression("a").firstMatch(text, WHOLE_TEXT);
  ASSERT_TRUE(match.has_value());
  EXPECT_EQ(match->data(), text.data() + text.find('a'));
}

TEST(NSRegularExpression, MatchLiesWhollyInTheSearchedRange) {
  const NSRegularExpression variable(R"(\$\{\w+\})");
  EXPECT_EQ(variable.firstMatch("${abc}", 0), std::nullopt);
  EXPECT_EQ(variable.firstMatch("${abc}", 5), std::nullopt);
  EXPECT_EQ(variable.firstMatch("${abc}", 6), "${abc}");
  EXPECT_EQ(variable.firstMatch("${abc}", 7), "${abc}");
  EXPECT_EQ(NSRegularExpression("a+").firstMatch("aaaa", 3), "aaa");
  EXPECT_EQ(NSRegularExpression("a$").firstMatch("aab", 2), "a");
}

TEST(NSRegularExpression, SearchedRangeIsCountedInUTF16Units) {
  const NSRegularExpression b("b");
  EXPECT_EQ(b.firstMatch("üb", 1), std::nullopt);
  EXPECT_EQ(b.firstMatch("üb", 2), "b");
  EXPECT_EQ(b.firstMatch("日b", 2), "b");
  EXPECT_EQ(b.firstMatch("👍b", 2), std::nullopt);
  EXPECT_EQ(b.firstMatch("👍b", 3), "b");
}

TEST(NSRegularExpression, CharacterOfWhichHalfIsInTheRangeIsOutside) {
  const NSRegularExpression any(".");
  EXPECT_EQ(any.firstMatch("👍", 1), std::nullopt);
  EXPECT_EQ(any.firstMatch("👍", 2), "👍");
  EXPECT_EQ(NSRegularExpression("a.*").firstMatch("a👍b", 2), "a");
}

TEST(NSRegularExpression, EmptyMatchIsAMatch) {
  EXPECT_EQ(NSRegularExpression("x*").firstMatch("abc", WHOLE_TEXT), "");
  EXPECT_EQ(NSRegularExpression("").firstMatch("", WHOLE_TEXT), "");
}

TEST(NSRegularExpression, MatchesTheWholeTextOrNot) {
  struct Case {
    std::string_view pattern;
    std::string_view text;
    bool isMatch;
  };
  const std::vector<Case> cases = {
      {"a+", "aaa", true},        {"a+", "aab", false},     {"a+", "baa", false},     {"a|ab", "ab", true},
      {"größe|x", "größe", true}, {"\\w+", "日本語", true}, {"\\w+", "a b", false},   {"", "", true},
      {"", "a", false},           {".*", "a\nb", false},    {"(?s).*", "a\nb", true}, {"(?i)STRASSE", "straße", true},
      {"(?i)äö", "ÄÖ", true},     {"\\p{Lu}+", "ÄÖ", true}, {"\\.", "x", false},      {".", "👍", true},
      {"[👍👎]{2}", "👎👍", true},    {"\\d+", "٣", true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(NSRegularExpression(c.pattern).matchesWhole(c.text), c.isMatch) << c.pattern << " / " << c.text;
  }
}

TEST(NSRegularExpression, ServesForManySearches) {
  NSRegularExpression digits("\\d+");
  for (const std::string number : {"1", "22", "333"}) {
    const std::string text = "x" + number;
    EXPECT_EQ(digits.firstMatch(text, WHOLE_TEXT), number);
    EXPECT_FALSE(digits.matchesWhole(text));
  }
  const NSRegularExpression moved = std::move(digits);
  EXPECT_TRUE(moved.matchesWhole("4444"));
}

TEST(NSRegularExpression, PatternThatDoesNotCompileIsNamedWithTheFaultAndItsPlace) {
  struct Case {
    std::string pattern;
    std::string fault;
  };
  const std::vector<Case> cases = {
      {"a(", "a parenthesis has no partner, at character 2"},
      {"äö)x", "a parenthesis has no partner, at character 3"},
      {"👍)x", "a parenthesis has no partner, at character 2"},
      {"ab\ncd)", "a parenthesis has no partner, at character 6"},
      {"ab\r\ncd\r)", "a parenthesis has no partner, at character 8"},
      {"ab\u2028\n)", "a parenthesis has no partner, at character 5"},
      {"[a", "a bracket expression has no closing bracket, at character 2"},
      {"*a", "there is a syntax error, at character 1"},
      {"(?q)x", "there is a syntax error, at character 3"},
      {"a\\", "the escape after the backslash is unknown, at character 2"},
      {"\\p{Foo}", "the Unicode property is unknown, at character 7"},
      {"\\N{foo}", "the name of the character is unknown"},
      {"[z-a]", "the range of characters begins after its end, at character 4"},
      {"a{2,1}", "the maximum of the {min,max} interval is less than its minimum, at character 6"},
      {"a{,3}", "the {min,max} interval is malformed, at character 3"},
      {"a{99999999999}", "the number is too big, at character 12"},
      {"x\\1", "the back reference is to a group that does not exist, at character 3"},
      {"(?<=a*)b", "what the look-behind matches has no greatest length, at character 7"},
      {"(?<a>x)\\k<b>", "the name of the group is malformed, at character 12"},
  };
  for (const Case& c : cases) {
    EXPECT_THAT([&c] { NSRegularExpression{c.pattern}; },
                ThrowsMessage<RegularExpressionError>("the regular expression \"" + c.pattern +
                                                      "\" cannot be read: " + c.fault));
  }
}

TEST(NSRegularExpression, MatchThatWouldBacktrackForEverIsGivenUp) {
  const NSRegularExpression runaway("(a+)+$");
  constexpr const char* MESSAGE = "the regular expression \"(a+)+$\" was given up: it takes too long on this text";
  EXPECT_THAT([&runaway] { (void)runaway.matchesWhole(runawayText()); },
              ThrowsMessage<RegularExpressionError>(MESSAGE));
  EXPECT_TRUE(runaway.matchesWhole("aaa")) << "and serves on afterwards";
}

TEST(NSRegularExpression, MatchThatBacktracksTooDeeplyIsGivenUp) {
  const NSRegularExpression deep("(a|b)*");
  EXPECT_THAT([&deep] { (void)deep.matchesWhole(std::string(10'000'000, 'a')); },
              ThrowsMessage<RegularExpressionError>(
                  "the regular expression \"(a|b)*\" was given up: it backtracks too deeply on this text"));
}

TEST(NSRegularExpression, AFirstMatchIsLookedForInTextsOfAnyLength) {
  const NSRegularExpression reference(R"(\$\{\w+\})");
  const std::string name(3'000'000, 'a');
  EXPECT_EQ(reference.firstMatch("${" + name, WHOLE_TEXT), std::nullopt);
  const std::string closed = "${" + name + "}";
  EXPECT_EQ(reference.firstMatch(closed, WHOLE_TEXT), closed);
}

}  // namespace
}  // namespace quobrak
