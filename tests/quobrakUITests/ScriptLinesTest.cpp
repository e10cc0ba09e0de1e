#include "quobrakUITests/ScriptLines.h"

#include <gtest/gtest.h>

#include <vector>

namespace quobrak {
namespace {

std::vector<std::string_view> linesOf(std::string_view script) {
  std::vector<std::string_view> lines;
  ScriptLines remaining(script);
  while (const auto line = remaining.next()) {
    lines.push_back(*line);
  }
  return lines;
}

TEST(ScriptLines, EveryNewlineCharacterEndsALine) {
  struct Row {
    std::string_view script;
    std::vector<std::string_view> expected;
  };
  const Row ROWS[] = {
      {"", {""}},
      {"a", {"a"}},
      {"a\nb", {"a", "b"}},
      {"a\n", {"a", ""}},
      {"\n", {"", ""}},
      {"\n\na", {"", "", "a"}},
      {"a\rb", {"a", "b"}},
      {"a\r\nb", {"a", "", "b"}},
      {"a\n\rb", {"a", "", "b"}},
      {"a\vb\fc", {"a", "b", "c"}},
      {"a\u0085b", {"a", "b"}},
      {"a\u2028b\u2029c", {"a", "b", "c"}},
      {" a\t\n b ", {" a\t", " b "}},
      {"é\u00A0\u200Bß\u2030x", {"é\u00A0\u200Bß\u2030x"}},
      {"a\u001Cb", {"a\u001Cb"}},
      {"日本\n語", {"日本", "語"}},
  };
  for (const auto& [script, expected] : ROWS) {
    EXPECT_EQ(linesOf(script), expected) << script;
  }
}

TEST(ScriptLines, NulIsACharacterLikeOthers) {
  const std::string_view script("a\0b\nc", 5);
  EXPECT_EQ(linesOf(script), (std::vector<std::string_view>{script.substr(0, 3), "c"}));
}

TEST(ScriptLines, ThatAreEmptyOrCommentsArePassedOver) {
  for (const char* line : {"", "#", "# pause,1", "#pause"}) {
    EXPECT_TRUE(isSkipped(line)) << line;
  }
  for (const char* line : {"pause,1", "a#b", ",#", " "}) {
    EXPECT_FALSE(isSkipped(line)) << line;
  }
}

TEST(ScriptLines, AfterTheLastLineThereIsNoneHoweverOftenOneAsks) {
  ScriptLines lines("a");
  EXPECT_EQ(lines.next(), "a");
  EXPECT_EQ(lines.next(), std::nullopt);
  EXPECT_EQ(lines.next(), std::nullopt);
}

}  // namespace
}  // namespace quobrak
