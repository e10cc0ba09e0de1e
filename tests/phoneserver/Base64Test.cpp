#include "phoneserver/Base64.h"

#include <gtest/gtest.h>

namespace quobrak::phoneserver {
namespace {

TEST(Base64, HasPaddingAndTheUsualCharacters) {
  EXPECT_EQ(base64(bytesOf("")), "");
  EXPECT_EQ(base64(bytesOf("a")), "YQ==");
  EXPECT_EQ(base64(bytesOf("abc")), "YWJj");
  EXPECT_EQ(base64(bytesOf("\xFB\xFF\xFE")), "+//+");
}

TEST(Base64, OfMuchHasNoLineBreaks) {
  const std::string text(3000, '\0');
  EXPECT_EQ(base64(bytesOf(text)), std::string(4000, 'A'));
}

TEST(RandomIdentifier, IsOfHexadecimalDigitsAndNeverTheSame) {
  const std::string one = randomIdentifier();
  EXPECT_EQ(one.size(), 32U);
  EXPECT_EQ(one.find_first_not_of("0123456789abcdef"), std::string::npos);
  EXPECT_NE(one, randomIdentifier());
}

}  // namespace
}  // namespace quobrak::phoneserver
