#include "host/check/HiddenCharacters.h"

#include <gtest/gtest.h>

namespace quobrak::host {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

TEST(HiddenCharacters, AreInvisibleOnes) {
  EXPECT_EQ(firstInvisible("pause"), std::nullopt);
  EXPECT_EQ(firstInvisible("click By\tTéxt 😀設"), std::nullopt);
  EXPECT_EQ(firstInvisible(""), std::nullopt);
  for (const std::string_view character : {"\u00A0", "\u00AD", "\u200B", "\u200F", "\u202F", "\u3000", "\uFEFF"}) {
    const std::string text = "😀 " + std::string(character) + "\u200B";
    EXPECT_EQ(firstInvisible(text), character) << numberOf(character);
  }
}

TEST(HiddenCharacters, AreControlCharactersButTabs) {
  EXPECT_EQ(firstControl("pause\t,1 \u00A0\u00E9"), std::nullopt);
  for (const std::string_view character : {"\0"sv, "\x1b"sv, "\x1f"sv, "\x7f"sv, "\u0080"sv, "\u009F"sv}) {
    const std::string text = "é\t" + std::string(character) + "\0"s;
    EXPECT_EQ(firstControl(text), character) << numberOf(character);
  }
}

TEST(HiddenCharacters, HaveNumbers) {
  EXPECT_EQ(numberOf("\0"sv), "U+0000");
  EXPECT_EQ(numberOf("\x7f"), "U+007F");
  EXPECT_EQ(numberOf("\u00A0"), "U+00A0");
  EXPECT_EQ(numberOf("\u07FF"), "U+07FF");
  EXPECT_EQ(numberOf("\u200B"), "U+200B");
  EXPECT_EQ(numberOf("\uFEFF"), "U+FEFF");
  EXPECT_EQ(numberOf("\U0001F600"), "U+1F600");
  EXPECT_EQ(numberOf("\U000E0001"), "U+E0001");
}

}  // namespace
}  // namespace quobrak::host
