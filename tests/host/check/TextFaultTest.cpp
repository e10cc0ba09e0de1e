#include "host/check/TextFault.h"

#include <gtest/gtest.h>

#include "platform/foundation/Unicode.h"

namespace quobrak::host {
namespace {

using namespace std::string_literals;

TEST(TextFault, IsAtTheFirstByteThatIsNoText) {
  struct Case {
    std::string bytes;
    std::size_t line;
    std::size_t editorLine;
    std::size_t column;
    std::string words;
    std::string text;
  };
  const std::vector<Case> table{
      {"\xE9", 1, 1, 1, "the byte 0xE9 is no UTF-8: save the file as UTF-8", "\xEF\xBF\xBD"},
      {"ü1\nüü,caf\xE9\nlast\xFF", 2, 2, 7, "the byte 0xE9 is no UTF-8: save the file as UTF-8", "üü,caf\xEF\xBF\xBD"},
      {"\xEF\xBB\xBF"
       "a\r\n\xC0",
       3, 2, 1, "the byte 0xC0 is no UTF-8: save the file as UTF-8", "\xEF\xBF\xBD"},
      {"ab\xE2\x82", 1, 1, 3, "the byte 0xE2 is no UTF-8: save the file as UTF-8", "ab\xEF\xBF\xBD"},
      {"ab\x80\x80", 1, 1, 3, "the byte 0x80 is no UTF-8: save the file as UTF-8", "ab\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"ab\xEF\xBF", 1, 1, 3, "the byte 0xEF is no UTF-8: save the file as UTF-8", "ab\xEF\xBF\xBD"},
      {"\xFF\xFE"
       "a",
       1, 1, 1, "it begins as UTF-16, and is ill-formed behind that: save it as UTF-8", ""},
      {"\xFF\xFE\0\0a"s, 1, 1, 1, "it begins as UTF-32, and is ill-formed behind that: save it as UTF-8", ""},
  };
  for (const Case& one : table) {
    ASSERT_EQ(decodedText(one.bytes), std::nullopt);
    const TextFault fault = textFaultIn(one.bytes);
    EXPECT_EQ(fault.line.inRun, one.line) << one.words;
    EXPECT_EQ(fault.line.inEditor, one.editorLine) << one.words;
    EXPECT_EQ(fault.column, one.column) << one.words;
    EXPECT_EQ(fault.words, one.words);
    EXPECT_EQ(fault.text, one.text);
  }
}

TEST(TextFault, IsFoundWhereverItStands) {
  const std::string good = "äöü€😀abcdefgh";
  for (std::size_t before = 0; before < 40; ++before) {
    std::string text;
    for (std::size_t i = 0; i < before; ++i) {
      text += i % 3 == 0 ? "€" : (i % 3 == 1 ? "a" : "😀");
    }
    const TextFault fault = textFaultIn(text + "\xFF" + good);
    EXPECT_EQ(fault.column, before + 1);
  }
}

}  // namespace
}  // namespace quobrak::host
