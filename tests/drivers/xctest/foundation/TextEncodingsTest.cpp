#include "drivers/xctest/foundation/TextEncodings.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quobrak::xctest {
namespace {

using namespace std::string_literals;

TEST(TextEncodings, EveryCharacterComesBackFromUTF8) {
  for (const char32_t character : {U'\0', U'a', U'\x7F', U'\u0080', U'ü', U'\u07FF', U'\u0800', U'日', U'\uD7FF',
                                   U'\uE000', U'\uFFFF', U'\U00010000', U'👍', U'\U0010FFFF'}) {
    const std::string bytes = inUTF8(character);
    std::size_t position = 0;
    EXPECT_EQ(nextCharacter(bytes, position), character);
    EXPECT_EQ(position, bytes.size());
  }
  EXPECT_EQ(inUTF8(U'ü'), "ü");
  EXPECT_EQ(inUTF8(U'日'), "日");
  EXPECT_EQ(inUTF8(U'👍'), "👍");
}

TEST(TextEncodings, IllFormedBytesAreNoCharacterAndArePassedOver) {
  struct Case {
    std::string bytes;
    std::size_t passed;
  };
  const std::vector<Case> cases = {
      {"\x80", 1},         {"\xFF", 1},          {"\xC3", 1},         {"\xC3z", 1},
      {"\xE2\x82z", 2},    {"\xF0\x9F\x91z", 3}, {"\xC0\xAF", 1},     {"\xE0\x80\xAF", 1},
      {"\xED\xA0\x80", 1}, {"\xF0\x80\x80", 1},  {"\xF4\x90\x80", 1}, {"\xF5\x80\x80\x80", 1},
  };
  for (const Case& c : cases) {
    std::size_t position = 0;
    EXPECT_EQ(nextCharacter(c.bytes, position), std::nullopt) << testing::PrintToString(c.bytes);
    EXPECT_EQ(position, c.passed) << testing::PrintToString(c.bytes);
  }
}

TEST(TextEncodings, ReadsUTF16InBothOrders) {
  EXPECT_EQ(fromUTF16("", ByteOrder::bigEndian), "");
  EXPECT_EQ(fromUTF16("\0a\0\xFC"s, ByteOrder::bigEndian), "aü");
  EXPECT_EQ(fromUTF16("a\0\xFC\0"s, ByteOrder::littleEndian), "aü");
  EXPECT_EQ(fromUTF16("\xD8\x3D\xDC\x4D\0z"s, ByteOrder::bigEndian), "👍z");
  EXPECT_EQ(fromUTF16("\x3D\xD8\x4D\xDCz\0"s, ByteOrder::littleEndian), "👍z");
}

TEST(TextEncodings, RefusesIllFormedUTF16) {
  for (const std::string& bytes : {"a"s, "\0a\0"s, "\xD8\x3D"s, "\xD8\x3D\0a"s, "\xDC\x4D"s, "\xD8\x3D\xD8\x3D"s}) {
    EXPECT_EQ(fromUTF16(bytes, ByteOrder::bigEndian), std::nullopt) << testing::PrintToString(bytes);
  }
}

TEST(TextEncodings, ReadsUTF32InBothOrdersAndRefusesWhatIsNoCharacter) {
  EXPECT_EQ(fromUTF32("\0\x01\xF4\x4D"s, ByteOrder::bigEndian), "👍");
  EXPECT_EQ(fromUTF32("\x4D\xF4\x01\0a\0\0\0"s, ByteOrder::littleEndian), "👍a");
  for (const std::string& bytes : {"\0\0\0"s, "\0\0\xD8\x3D"s, "\0\0\xDC\x4D"s, "\0\x11\0\0"s, "\xFF\xFF\xFF\xFF"s}) {
    EXPECT_EQ(fromUTF32(bytes, ByteOrder::bigEndian), std::nullopt) << testing::PrintToString(bytes);
  }
}

}  // namespace
}  // namespace quobrak::xctest
