#include "platform/foundation/Unicode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>
#include <vector>

// What all implementations promise is tried in tests/platform/foundation; here are those characters that the Foundation
// of these tests knows too.

namespace quobrak {
namespace {

using namespace std::string_view_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(UnicodeOnFoundation, CountsCharactersWithTheirMarks) {
  struct Case {
    std::string_view text;
    std::size_t count;
  };
  const std::vector<Case> cases = {
      {"", 0},         {"abc", 3},   {"a\0b"sv, 3}, {"\r\n", 1},    {"a\r\n\r\nb", 4},     {"\n\r", 2},
      {"\r\r\n\n", 3}, {"ü\r\n", 2}, {"größe", 5},  {"u\u0308", 1}, {"a\u0301\u0323b", 2}, {"日本語", 3},
      {"👍", 1},        {"👍👎", 2},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(characterCount(c.text), c.count) << c.text;
  }
}

TEST(UnicodeOnFoundation, CharactersArePartsOfTheText) {
  EXPECT_THAT(characters(""), IsEmpty());
  EXPECT_THAT(characters("\r\n\n"), ElementsAre("\r\n", "\n"));
  EXPECT_THAT(characters("日a\u0301\u0323b👍"), ElementsAre("日", "a\u0301\u0323", "b", "👍"));
  const std::string_view text = "a👍b";
  EXPECT_EQ(characters(text)[2].data(), text.data() + text.size() - 1);
}

TEST(UnicodeOnFoundation, FoldsIllFormedBytesToReplacementCharacters) {
  EXPECT_EQ(caseFolded("A\xFFÄ").text, "a\uFFFDä");
}

}  // namespace
}  // namespace quobrak
