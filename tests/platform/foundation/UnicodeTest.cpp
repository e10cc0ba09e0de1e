#include "platform/foundation/Unicode.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(IsUTF8, AcceptsWellFormedTexts) {
  for (const std::string_view text :
       {""sv, "plain"sv, "eight by"sv, "more than eight bytes"sv, "größe"sv, "日本語"sv, "👍🏽"sv, "\0"sv, "a\0b"sv,
        "\x7F"sv, "\xF4\x8F\xBF\xBF"sv, "\xEF\xBF\xBF"sv}) {
    EXPECT_TRUE(isUTF8(text)) << text;
  }
}

TEST(IsUTF8, RefusesIllFormedBytesWhereverTheyStand) {
  const std::vector<std::string> illFormed = {
      "\x80",              // a trail byte on its own
      "\xC3",              // cut short
      "\xE2\x82",          // cut short
      "\xF0\x9F\x91",      // cut short
      "\xC0\xAF",          // overlong
      "\xE0\x80\xAF",      // overlong
      "\xF0\x80\x80\xAF",  // overlong
      "\xED\xA0\x80",      // a surrogate
      "\xF4\x90\x80\x80",  // beyond U+10FFFF
      "\xFF",
  };
  for (const std::string& bytes : illFormed) {
    for (std::size_t before = 0; before < 18; ++before) {
      EXPECT_FALSE(isUTF8(std::string(before, 'a') + bytes)) << before << " before " << testing::PrintToString(bytes);
      EXPECT_FALSE(isUTF8("ü" + std::string(before, 'a') + bytes + "zzzzzzzzz"))
          << before << " before " << testing::PrintToString(bytes);
    }
  }
}

TEST(RepairedUTF8, LeavesWellFormedTextAsItIs) {
  EXPECT_EQ(repairedUTF8("a\0größe 日本語 👍🏽"sv), "a\0größe 日本語 👍🏽"sv);
  EXPECT_EQ(repairedUTF8(""), "");
}

TEST(RepairedUTF8, ReplacesEveryIllFormedSequence) {
  struct Case {
    std::string_view bytes;
    std::string_view repaired;
  };
  const std::vector<Case> cases = {
      {"a\x80z", "a\uFFFDz"},
      {"a\xFFz", "a\uFFFDz"},
      {"a\xC3", "a\uFFFD"},
      {"a\xC3z", "a\uFFFDz"},
      {"\xE2\x82z", "\uFFFDz"},                // the beginning of a character counts once
      {"\xF0\x9F\x91ü", "\uFFFDü"},            //
      {"\xC0\xAF", "\uFFFD\uFFFD"},            // no character begins with C0
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},  // nor with ED A0
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(repairedUTF8(c.bytes), c.repaired) << testing::PrintToString(c.bytes);
  }
}

TEST(DecodedText, TellsTheEncodingByTheByteOrderMarkAndDropsIt) {
  struct Case {
    std::string bytes;
    std::optional<std::string> text;
  };
  const std::vector<Case> cases = {
      {"", ""},
      {"größe", "größe"},
      {"gr\xF6\xDF\x65", std::nullopt},
      {"\xEF\xBB\xBFgröße", "größe"},
      {"\xEF\xBB\xBF", ""},
      {"\xEF\xBB\xBF\xEF\xBB\xBFx", "\uFEFFx"},
      {"\xEF\xBB\xBF\xFF", std::nullopt},
      {"\xEF\xBB", std::nullopt},
      {"\xFF\xFE"s, ""},
      {"\xFF\xFE\xFC\0a\0"s, "üa"},
      {"\xFE\xFF\0\xFC\0a"s, "üa"},
      {"\xFF\xFE\x3D\xD8\x4D\xDC"s, "👍"},
      {"\xFE\xFF\xD8\x3D\xDC\x4D"s, "👍"},
      {"\xFE\xFF\0a\xFE\xFF"s, "a\uFEFF"},
      {"\xFE\xFF\0a\0\0\0b"s, "a\0b"s},
      {"\xFF\xFE\0\0\x4D\xF4\x01\0"s, "👍"},
      {"\0\0\xFE\xFF\0\x01\xF4\x4D"s, "👍"},
      {"\xFF\xFE\x3D\xD8"s, std::nullopt},          // half a pair, at the end
      {"\xFF\xFE\x3D\xD8\x61\0"s, std::nullopt},    // half a pair, before another character
      {"\xFF\xFE\x4D\xDC"s, std::nullopt},          // the other half
      {"\xFF\xFE\x61"s, std::nullopt},              // an odd length
      {"\xFE\xFF\0a\0"s, std::nullopt},             //
      {"\0\0\xFE\xFF\0\0\0"s, std::nullopt},        //
      {"\0\0\xFE\xFF\0\0\xD8\x3D"s, std::nullopt},  // a surrogate
      {"\0\0\xFE\xFF\0\x11\0\0"s, std::nullopt},    // beyond U+10FFFF
      {"+/v8-plain"s, "+/v8-plain"},                // the mark of UTF-7, and UTF-8 all the same
      {"\x0E\xFE\xFFx"s, std::nullopt},             // the mark of SCSU, no UTF-8
  };
  for (const Case& c : cases) {
    EXPECT_EQ(decodedText(c.bytes), c.text) << testing::PrintToString(c.bytes);
  }
}

TEST(TrimmedBlanks, DropsTabsAndSpacesOfAllKindsAtBothEnds) {
  struct Case {
    std::string_view text;
    std::string_view trimmed;
  };
  const std::vector<Case> cases = {
      {"", ""},
      {" \t ", ""},
      {"a", "a"},
      {" \ta b\t ", "a b"},
      {"\u00A0\u1680\u2000\u200A\u202F\u205F\u3000ü\u00A0\u3000", "ü"},
      {"\u3000", ""},
      {"\u200Bx\u200B", "\u200Bx\u200B"},  // the zero-width space is a format character
      {"\n x \r\n", "\n x \r\n"},
      {" \u2028 ", "\u2028"},
      {" \u0085 ", "\u0085"},
      {"\v\f", "\v\f"},
      {" \xFF ", "\xFF"},
      {" x\x80\x80 ", "x\x80\x80"},
      {" \x80 ", "\x80"},
      {"x\u00A0\x80", "x\u00A0\x80"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(trimmedBlanks(c.text), c.trimmed) << testing::PrintToString(c.text);
  }
}

TEST(TrimmedBlanks, IsAPartOfTheText) {
  const std::string_view text = "  ab ";
  EXPECT_EQ(trimmedBlanks(text).data(), text.data() + 2);
}

TEST(NewlineLength, CountsTheBytesOfTheNewlineThatStartsTheText) {
  struct Case {
    std::string_view text;
    std::size_t length;
  };
  const std::vector<Case> cases = {
      {"", 0},     {"a\n", 0},      {"\n", 1},      {"\va", 1},    {"\f", 1},   {"\r\n", 1},   {"\t", 0},
      {"\x0E", 0}, {"\u0085x", 2},  {"\u2028x", 3}, {"\u2029", 3}, {"ü", 0},    {"\u2027", 0}, {"\u0086", 0},
      {"\xC2", 0}, {"\xE2\x80", 0}, {"\x85", 0},    {"\u202A", 0}, {"\0"sv, 0}, {" \n", 0},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(newlineLength(c.text), c.length) << testing::PrintToString(c.text);
  }
}

TEST(CharacterCount, CountsWhatAReaderTakesForOneCharacter) {
  struct Case {
    std::string_view text;
    std::size_t count;
  };
  const std::vector<Case> cases = {
      {"", 0},
      {"abc", 3},
      {"a\0b"sv, 3},
      {"\r\n", 1},
      {"a\r\n\r\nb", 4},
      {"\n\r", 2},
      {"\r\r\n\n", 3},
      {"ü\r\n", 2},
      {"größe", 5},
      {"u\u0308", 1},                    // a combining mark
      {"a\u0301\u0323b", 2},             //
      {"日本語", 3},                     //
      {"👍", 1},                          //
      {"👍🏽", 1},                   // a skin tone
      {"👨‍👩‍👧‍👦", 1},  // a family
      {"🇩🇪🇫🇷", 2},                       // flags
      {"🇩🇪🇫", 2},                        //
      {"각", 1},                         // Hangul in jamo
      {"ab👍🏽cd", 5},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(characterCount(c.text), c.count) << c.text;
  }
}

TEST(Characters, ArePartsOfTheTextInTheirOrder) {
  EXPECT_THAT(characters(""), IsEmpty());
  EXPECT_THAT(characters("abc"), ElementsAre("a", "b", "c"));
  EXPECT_THAT(characters(" \t"), ElementsAre(" ", "\t"));
  EXPECT_THAT(characters("a\0b"sv), ElementsAre("a", "\0"sv, "b"));
  EXPECT_THAT(characters("\r\n\n"), ElementsAre("\r\n", "\n"));
  EXPECT_THAT(characters("größe"), ElementsAre("g", "r", "ö", "ß", "e"));
  EXPECT_THAT(characters("a\u0301\u0323bu\u0308"), ElementsAre("a\u0301\u0323", "b", "u\u0308"));
  EXPECT_THAT(characters("日👍🏽👨‍👩‍👧‍👦!"),
              ElementsAre("日", "👍🏽", "👨‍👩‍👧‍👦", "!"));
  EXPECT_THAT(characters("🇩🇪🇫🇷🇫"), ElementsAre("🇩🇪", "🇫🇷", "🇫"));
  EXPECT_THAT(characters("\u1100\u1161\u11A8\u1100"), ElementsAre("\u1100\u1161\u11A8", "\u1100"));
  const std::string_view text = "a👍b";
  EXPECT_EQ(characters(text)[2].data(), text.data() + text.size() - 1);
}

TEST(Characters, AreAsManyAsTheirCount) {
  for (const std::string_view text : {""sv, "abc"sv, "a\r\n\r\nb"sv, "\n\r"sv, "größe"sv, "ab👍🏽cd"sv, "🇩🇪🇫"sv}) {
    EXPECT_EQ(characters(text).size(), characterCount(text)) << text;
  }
}

TEST(CaseFolded, FoldsASCIIAndAllOtherLetters) {
  EXPECT_EQ(caseFolded("").text, "");
  EXPECT_EQ(caseFolded("@AZ[`az{ 09").text, "@az[`az{ 09");
  EXPECT_EQ(caseFolded("ÄÖÜ ΣΊΣΥΦΟΣ ЖЯ 日本 𐐀").text, "äöü σίσυφοσ жя 日本 𐐨");
  EXPECT_THAT(caseFolded("ÄÖÜ ΣΊΣΥΦΟΣ").insideOneCharacter, IsEmpty());
}

TEST(CaseFolded, RecordsThePositionsInsideWhatOneCharacterFoldedTo) {
  const FoldedText sharpS = caseFolded("Straße");
  EXPECT_EQ(sharpS.text, "strasse");
  EXPECT_THAT(sharpS.insideOneCharacter, ElementsAre(5));

  const FoldedText dottedI = caseFolded("İs");
  EXPECT_EQ(dottedI.text, "i\u0307s");
  EXPECT_THAT(dottedI.insideOneCharacter, ElementsAre(1));

  const FoldedText ligatures = caseFolded("ﬃxﬁ");
  EXPECT_EQ(ligatures.text, "ffixfi");
  EXPECT_THAT(ligatures.insideOneCharacter, ElementsAre(1, 2, 5));

  const FoldedText threeCharacters = caseFolded("\u0390");
  EXPECT_EQ(threeCharacters.text, "\u03B9\u0308\u0301");
  EXPECT_THAT(threeCharacters.insideOneCharacter, ElementsAre(2, 4));
}

TEST(CaseFolded, FoldsTheLettersBesideThoseThatFoldToSeveral) {
  const FoldedText folded = caseFolded("ÄßЖ");
  EXPECT_EQ(folded.text, "ässж");
  EXPECT_THAT(folded.insideOneCharacter, ElementsAre(3));
}

TEST(Contains, ComparesWholeCharactersWithoutRegardToCase) {
  struct Case {
    std::string_view text;
    std::string_view needle;
    bool isContained;
  };
  const std::vector<Case> cases = {
      {"Straße", "STRASSE", true},
      {"STRASSE", "straße", true},
      {"Straße", "ss", true},
      {"Straße", "s", true},  // the first letter
      {"Straße", "as", false},
      {"Straße", "se", false},
      {"ß", "s", false},
      {"ß", "ss", true},
      {"ßs", "s", true},  // rejected twice inside ß, found behind it
      {"ßß", "sss", false},
      {"sß", "sss", true},
      {"ẞ", "ß", true},
      {"ss", "ß", true},
      {"ﬁle", "FI", true},
      {"ﬁle", "f", false},
      {"ﬁle", "ile", false},
      {"file", "ﬁ", true},
      {"\u212A", "k", true},  // the Kelvin sign
      {"İstanbul", "istanbul", false},
      {"İstanbul", "i", false},
      {"İstanbul", "İSTANBUL", true},
      {"ıstanbul", "ISTANBUL", false},
      {"ISTANBUL", "istanbul", true},
      {"ÄÖ", "äö", true},
      {"ΣΊΣΥΦΟΣ", "σίσυφος", true},
      {"any", "", false},
      {"", "", false},
      {"", "a", false},
      {"Hello", "world", false},
      {"Hello, World", "WORLD", true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(contains(caseFolded(c.text), caseFolded(c.needle)), c.isContained) << c.text << " / " << c.needle;
  }
}

}  // namespace
}  // namespace quobrak
