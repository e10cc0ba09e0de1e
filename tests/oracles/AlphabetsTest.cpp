#include "tests/oracles/Alphabets.h"

#include <gtest/gtest.h>

namespace quobrak::oracles {
namespace {

TEST(Alphabets, AreEnoughForTextsWithoutOddLetters) {
  for (const std::string_view text : {"", "Lamp, 60 cm", "Ärger für Zoë", "Αθήνα", "Москва", "漢字かな", "한국어",
                                      "עברית", "العربية", "ไทย", "👩🏽‍🔧", "\n“Q” \u200E"}) {
    EXPECT_TRUE(areAllTheAlphabets(text)) << text;
  }
}

TEST(Alphabets, AreNotEnoughForLettersThatFoldOtherwise) {
  for (const std::string_view text : {"Straße", "İ", "ﬁ", "\u212A", "ſ", "σας", "µ", "ÿ", "Łódź", "Ⓐ", "ａ", "ა"}) {
    EXPECT_FALSE(areAllTheAlphabets(text)) << text;
  }
}

TEST(Alphabets, GiveEachCapitalItsSmallLetter) {
  EXPECT_EQ(CAPITALS.size(), SMALL_LETTERS.size());
}

}  // namespace
}  // namespace quobrak::oracles
